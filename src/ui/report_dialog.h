// The report screen (ErgebEdit): the result sets of the plant in an
// editable grid, the laid-out pages in a preview, printing and PDF.
#pragma once

#include <vector>

#include <QDialog>

#include "documents/report_layout.h"

class QComboBox;
class QLabel;
class QSpinBox;
class QTableWidget;

namespace kv { struct Workspace; }

namespace kvui {

class PictureView;

class ReportDialog : public QDialog {
    Q_OBJECT
public:
    explicit ReportDialog(kv::Workspace& ws, QWidget* parent = nullptr);
    const std::vector<kv::DrawingList>& Pages() const { return pages_; }
    std::vector<kv::ReportSet>& Sets() { return sets_; }
    void ShowSet(int set);
    void ShowPage(int page);
    // DataSpread operations on the rows of the current set.
    void InsertLine();
    void DeleteLine();
    bool SavePdf(const QString& path);
    bool Print();

private:
    void Relayout();
    void TakeGrid();

    kv::Workspace& ws_;
    std::vector<kv::ReportSet> sets_;
    std::vector<kv::DrawingList> pages_;
    QComboBox* set_ = nullptr;
    QTableWidget* grid_ = nullptr;
    PictureView* preview_ = nullptr;
    QSpinBox* page_ = nullptr;
    QLabel* pages_label_ = nullptr;
    bool filling_ = false;
};

}  // namespace kvui
