// The report screen (ErgebEdit): the result sets of the plant in an
// editable grid, the laid-out pages in a preview, printing and PDF.
#pragma once

#include <vector>

#include <QDialog>

#include "documents/report_layout.h"

class QComboBox;
class QSlider;
class QLabel;
class QSpinBox;
class QTableWidget;

namespace kv { struct Workspace; }

namespace kvui {

class PictureView;

// DruckEInstell: printer, paper, window state of the drawing, font size and
// scale of the printout.
class PrintSettingsDialog : public QDialog {
    Q_OBJECT
public:
    PrintSettingsDialog(kv::Workspace& ws, kv::PrintSettings& settings, QWidget* parent = nullptr);
    void Take();

private:
    kv::PrintSettings& settings_;
    QComboBox* paper_ = nullptr;
    QComboBox* window_ = nullptr;
    QComboBox* font_ = nullptr;
    QSlider* scale_ = nullptr;
};

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
    void CopyLines();
    void PasteLines();
    bool SavePdf(const QString& path);
    bool Print();
    kv::PrintSettings& Settings() { return settings_; }

private:
    void Relayout();
    void TakeGrid();

    kv::Workspace& ws_;
    std::vector<kv::ReportSet> sets_;
    std::vector<kv::DrawingList> pages_;
    kv::PrintSettings settings_;
    QComboBox* set_ = nullptr;
    QTableWidget* grid_ = nullptr;
    PictureView* preview_ = nullptr;
    QSpinBox* page_ = nullptr;
    QLabel* pages_label_ = nullptr;
    bool filling_ = false;
};

}  // namespace kvui
