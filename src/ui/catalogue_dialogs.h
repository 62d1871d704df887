// The catalogue editor (KatEdit) and the catalogue manager, thin over the
// core's editor model.
#pragma once

#include <QDialog>

#include "catalogue/catalogue_editor.h"

class QComboBox;
class QLabel;
class QLineEdit;
class QTableWidget;

namespace kv { struct Workspace; }

namespace kvui {

class CatalogueEditorDialog : public QDialog {
    Q_OBJECT
public:
    explicit CatalogueEditorDialog(kv::Workspace& ws, QWidget* parent = nullptr);
    kv::CatalogueEditor& Model() { return editor_; }
    void ShowCatalogue(const std::string& base);
    void ShowGroup(int slot);
    bool Save();
    // The copy and new buttons ask for base and title, then call these.
    bool Copy(const std::string& base, const std::string& title);
    bool CreateBlank(const std::string& base, const std::string& title);
    // Rebuilds the Matchcode with the progress bar.
    void RebuildIndex();

protected:
    void done(int result) override;

private:
    void FillAll();
    void FillCatalogues();
    void FillGroups();
    void FillGrid();
    void SaveIfChanged();
    bool AskBaseAndTitle(std::string& base, std::string& title);

    kv::Workspace& ws_;
    kv::CatalogueEditor editor_;
    QComboBox* catalogues_ = nullptr;
    QComboBox* groups_ = nullptr;
    QLineEdit* series_ = nullptr;
    QLabel* kind_ = nullptr;
    QTableWidget* grid_ = nullptr;
    bool filling_ = false;
};

class CatalogueManagerDialog : public QDialog {
    Q_OBJECT
public:
    explicit CatalogueManagerDialog(kv::Workspace& ws, QWidget* parent = nullptr);
    bool Install(const std::string& base, const std::string& title);
    bool Remove(const std::string& base);

private:
    void Fill();

    kv::Workspace& ws_;
    QTableWidget* installed_ = nullptr;
    QComboBox* candidates_ = nullptr;
    QLineEdit* title_ = nullptr;
};

}  // namespace kvui
