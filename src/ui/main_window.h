// The main menu StartForm: first and last window of a run.
#pragma once

#include <QMainWindow>

#include <vector>

class QLabel;
class QListWidget;
class QPushButton;

namespace kv { struct Workspace; }

namespace kvui {

class MainWindow : public QMainWindow {
    Q_OBJECT
public:
    explicit MainWindow(kv::Workspace& ws, QWidget* parent = nullptr);

    // Assigns the words of the current language to every control.
    void FillCaptions();
    // The language buttons: change the language when its tables exist.
    void ChooseLanguage(const QString& code);
    // End: asks, saves the settings on Yes and ends the run.
    void EndRun();
    // The project actions of the menu.
    void NewProjectAction();
    void OpenProjectData();
    void LoadProjectAction();
    void SaveProjectAction();
    void SaveProjectAsAction();
    void DeleteProjectAction();
    void OpenPipeTables();
    void OpenRefrigerantWindow();
    void OpenZetaValues();
    void OpenDefaults();
    void OpenCatalogueEditor();
    // Acts on the status word of the exchange file once the window shows.
    void ActOnStatusWord();
    // Before unsaved input is lost: asks whether to save it first. False
    // when the user cancels (or the save failed).
    bool KeepInput();
    // The title bar: the open project with a mark for unsaved input.
    void UpdateTitle();
    // Loads a project of the recent list and opens the data screen.
    void OpenRecent(const QString& path);

signals:
    // The user confirmed the end; the settings are written.
    void ended();
    // The plant scheme screen asks for the h,log p diagram.
    void diagramRequested(QWidget* over);

protected:
    void showEvent(QShowEvent* event) override;
    void closeEvent(QCloseEvent* event) override;

private:
    void ShowInformation();
    void ShowHelp();
    void PrintSetup();
    void AfterFirstShow();
    void FillRecent();

    kv::Workspace& ws_;
    QLabel* title_ = nullptr;
    QLabel* subtitle_ = nullptr;
    QPushButton* newProject_ = nullptr;
    QPushButton* openData_ = nullptr;
    QPushButton* load_ = nullptr;
    QPushButton* save_ = nullptr;
    QPushButton* saveAs_ = nullptr;
    QPushButton* delete_ = nullptr;
    QPushButton* pipes_ = nullptr;
    QPushButton* zeta_ = nullptr;
    QPushButton* defaults_ = nullptr;
    QPushButton* catalogue_ = nullptr;
    std::vector<std::pair<QPushButton*, int>> programs_;  // buttons of the other programs of the family
    QPushButton* help_ = nullptr;
    QPushButton* info_ = nullptr;
    QPushButton* printSetup_ = nullptr;
    QPushButton* end_ = nullptr;
    std::vector<QPushButton*> languageButtons_;
    QLabel* recentLabel_ = nullptr;
    QListWidget* recent_ = nullptr;
    bool shownOnce_ = false;
    bool ending_ = false;
};

}  // namespace kvui
