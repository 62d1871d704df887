#include "ui/main_window.h"

#include "ui/list_dialogs.h"
#include "ui/viewer_dialog.h"
#include "documents/scheme_generator.h"

#include <QApplication>
#include <QCloseEvent>
#include <QFileDialog>

#include <filesystem>
#include <QFrame>
#include <QGridLayout>
#include <QHBoxLayout>
#include <QLabel>
#include <QListWidget>
#include <QMessageBox>
#include <QPrintDialog>
#include <QPrinter>
#include <QPushButton>
#include <QScreen>
#include <QShortcut>
#include <QThread>
#include <QTimer>
#include <QVBoxLayout>

#include "catalogue/matchcode.h"
#include "project/project_file.h"
#include "project/project_io.h"
#include "project/project_paths.h"
#include "project/project_state.h"
#include "project/recent_projects.h"
#include "shell/captions.h"
#include "shell/numbers.h"
#include "shell/settings.h"
#include "shell/startup.h"
#include "shell/workspace.h"
#include "ui/bindings.h"
#include "ui/catalogue_dialogs.h"
#include "ui/defaults_dialog.h"
#include "ui/diagram_dialog.h"
#include "ui/help_dialog.h"
#include "ui/project_browser_dialog.h"
#include "ui/project_data_dialog.h"
#include "ui/refrigerant_dialog.h"
#include "ui/scheme_dialog.h"
#include "ui/tables_dialogs.h"
#include "ui/file_dialogs.h"
#include "ui/qt_interface.h"
#include "ui/qt_words.h"
#include "ui/welcome_dialog.h"

namespace kvui {

namespace {
template <class Dialog>
Dialog* OpenScreen(Dialog* d);
}  // namespace

namespace {

QPushButton* MenuButton(const char* name) {
    auto* b = new QPushButton;
    b->setObjectName(QLatin1String(name));
    b->setMinimumHeight(36);
    b->setMinimumWidth(260);
    return b;
}

}  // namespace

MainWindow::MainWindow(kv::Workspace& ws, QWidget* parent) : QMainWindow(parent), ws_(ws) {
    setObjectName(QStringLiteral("StartForm"));
    // The project as the run found it counts as saved, also for an action
    // that comes before the first show has been handled.
    kv::MarkProjectSaved(ws_);
    auto* central = new QWidget;
    auto* layout = new QVBoxLayout(central);
    layout->setContentsMargins(24, 18, 24, 18);

    auto* header = new QFrame;
    header->setObjectName(QStringLiteral("headline"));
    header->setStyleSheet(QStringLiteral("#headline { background: #12467a; border-radius: 4px; }"
                                         "#headline QLabel { color: white; }"));
    auto* headerLayout = new QVBoxLayout(header);
    title_ = new QLabel;
    QFont tf = title_->font();
    tf.setPointSizeF(tf.pointSizeF() * 2.2);
    tf.setBold(true);
    title_->setFont(tf);
    subtitle_ = new QLabel;
    headerLayout->addWidget(title_);
    headerLayout->addWidget(subtitle_);
    layout->addWidget(header);

    auto* menu = new QVBoxLayout;
    menu->setSpacing(8);
    newProject_ = MenuButton("NewProject");
    openData_ = MenuButton("OpenProjectData");
    load_ = MenuButton("LoadProject");
    save_ = MenuButton("SaveProject");
    saveAs_ = MenuButton("SaveProjectAs");
    delete_ = MenuButton("DeleteProject");
    pipes_ = MenuButton("PipeData");
    zeta_ = MenuButton("ZetaValues");
    defaults_ = MenuButton("Defaults");
    catalogue_ = MenuButton("Catalogue");
    help_ = MenuButton("Help");
    info_ = MenuButton("Information");
    printSetup_ = MenuButton("PrintSetup");
    end_ = MenuButton("End");
    for (QPushButton* b : {newProject_, openData_, load_, save_, saveAs_, delete_}) menu->addWidget(b);
    // The lists of the plant, each opening the parts list screen at its tab.
    menu->addSpacing(12);
    const std::pair<const char*, const char*> lists[] = {
        {"PartsList", "Stklst.DAT"}, {"UnitsList", "Vrdlst.DAT"}, {"PipeList", "Rhrltg.DAT"}, {"FlangeList", "Flansh.DAT"}};
    for (const auto& [name, file] : lists) {
        QPushButton* b = MenuButton(name);
        menu->addWidget(b);
        const QString list = QString::fromLatin1(file);
        connect(b, &QPushButton::clicked, this, [this, list] { OpenScreen(new ListDialog(ws_, list, this)); });
    }
    menu->addStretch(1);
    auto* data = new QVBoxLayout;
    data->setSpacing(8);
    for (QPushButton* b : {defaults_, catalogue_, pipes_, zeta_, help_, info_, printSetup_}) data->addWidget(b);
    // The refrigerant window, captioned with the others.
    QPushButton* refrigerant = MenuButton("Refrigerant");
    data->addWidget(refrigerant);
    QPushButton* options = MenuButton("Options");
    data->addWidget(options);
    connect(options, &QPushButton::clicked, this, [this] { OpenScreen(new LineElectricDialog(ws_, this)); });
    connect(refrigerant, &QPushButton::clicked, this, &MainWindow::OpenRefrigerantWindow);
    data->addSpacing(12);
    data->addWidget(end_);
    data->addStretch(1);
    // The other programs of the family, started with the exchange file.
    auto* programs = new QVBoxLayout;
    programs->setSpacing(8);
    const std::pair<const char*, kv::ExternalProgram> family[] = {
        {"Drawing", kv::ExternalProgram::Draw},           {"PartsProgram", kv::ExternalProgram::Parts},
        {"HeatExchanger", kv::ExternalProgram::HeatExchanger}, {"ColdRoom", kv::ExternalProgram::ColdRoom},
        {"AirConditioning", kv::ExternalProgram::AirConditioning}};
    for (const auto& [name, program] : family) {
        QPushButton* b = MenuButton(name);
        programs->addWidget(b);
        programs_.push_back({b, static_cast<int>(program)});
        connect(b, &QPushButton::clicked, this, [this, b, program] {
            // Without the drawing program the scheme opens in the viewer,
            // composed anew for a calculated plant.
            if (program == kv::ExternalProgram::Draw && kv::FindExternalProgram(ws_, program).empty()) {
                if (ws_.project.CalcState == 1) kv::WriteScheme(ws_, 0);
                OpenScreen(new ViewerDialog(ws_, QStringLiteral("RIFliess.dat"), this));
                return;
            }
            // A program that is not installed is explained once; its button then rests.
            if (kv::FindExternalProgram(ws_, program).empty()) {
                QString text = Q(ws_.captions[kv::Cap::ProgramNotInstalled]);
                for (const kv::ExternalProgramInfo& info : kv::ExternalPrograms())
                    if (info.id == program) text += QLatin1Char(' ') + Q(std::string(info.file));
                b->setEnabled(false);
                b->setToolTip(text);
                ws_.ui.Message(ws_.Title(), text.toStdString(), kv::MessageIcon::Information);
                return;
            }
            // The drawing program gets status 1, the parts program 119 with flag 1.
            const int status = program == kv::ExternalProgram::Draw    ? kv::status::DrawingProgram
                               : program == kv::ExternalProgram::Parts ? kv::status::CatalogueEditor
                                                                       : 0;
            kv::HandOver(ws_, program, program == kv::ExternalProgram::Parts ? 1 : 0, status);
        });
    }
    programs->addStretch(1);
    auto* menuRow = new QHBoxLayout;
    menuRow->addLayout(menu);
    menuRow->addSpacing(24);
    menuRow->addLayout(data);
    menuRow->addSpacing(24);
    menuRow->addLayout(programs);
    menuRow->addStretch(1);
    layout->addSpacing(12);
    layout->addLayout(menuRow, 1);
    // The recently used projects, each opened with one click.
    recentLabel_ = new QLabel;
    recent_ = new QListWidget;
    recent_->setObjectName(QStringLiteral("RecentProjects"));
    recent_->setMaximumHeight(120);
    connect(recent_, &QListWidget::itemClicked, this,
            [this](QListWidgetItem* item) { OpenRecent(item->data(Qt::UserRole).toString()); });
    layout->addWidget(recentLabel_);
    layout->addWidget(recent_);

    auto* languages = new QHBoxLayout;
    for (std::string_view code : kv::kMenuLanguages) {
        const QString c = QString::fromUtf8(code.data(), static_cast<int>(code.size()));
        auto* b = new QPushButton(c);
        b->setObjectName(QStringLiteral("lang_") + c);
        b->setCheckable(true);
        b->setMinimumWidth(52);
        connect(b, &QPushButton::clicked, this, [this, c] { ChooseLanguage(c); });
        languages->addWidget(b);
        languageButtons_.push_back(b);
    }
    languages->addStretch(1);
    layout->addLayout(languages);
    setCentralWidget(central);

    connect(newProject_, &QPushButton::clicked, this, &MainWindow::NewProjectAction);
    connect(openData_, &QPushButton::clicked, this, &MainWindow::OpenProjectData);
    connect(load_, &QPushButton::clicked, this, &MainWindow::LoadProjectAction);
    connect(save_, &QPushButton::clicked, this, &MainWindow::SaveProjectAction);
    connect(saveAs_, &QPushButton::clicked, this, &MainWindow::SaveProjectAsAction);
    connect(delete_, &QPushButton::clicked, this, &MainWindow::DeleteProjectAction);
    connect(pipes_, &QPushButton::clicked, this, &MainWindow::OpenPipeTables);
    connect(zeta_, &QPushButton::clicked, this, &MainWindow::OpenZetaValues);
    connect(catalogue_, &QPushButton::clicked, this, &MainWindow::OpenCatalogueEditor);
    connect(defaults_, &QPushButton::clicked, this, &MainWindow::OpenDefaults);
    connect(help_, &QPushButton::clicked, this, &MainWindow::ShowHelp);
    connect(info_, &QPushButton::clicked, this, &MainWindow::ShowInformation);
    connect(printSetup_, &QPushButton::clicked, this, &MainWindow::PrintSetup);
    connect(end_, &QPushButton::clicked, this, &MainWindow::EndRun);
    // The standard keys of a desktop program.
    const std::pair<QKeySequence, QPushButton*> keys[] = {
        {QKeySequence(QStringLiteral("Ctrl+N")), newProject_}, {QKeySequence(QStringLiteral("Ctrl+O")), load_}, {QKeySequence(QStringLiteral("Ctrl+S")), save_},
        {QKeySequence(QStringLiteral("Ctrl+Shift+S")), saveAs_}, {QKeySequence(QStringLiteral("Ctrl+P")), printSetup_},
        {QKeySequence(Qt::Key_F1), help_}};
    for (const auto& [key, button] : keys)
        connect(new QShortcut(key, this), &QShortcut::activated, button, &QPushButton::click);
    InstallKeyboardRules();
    InstallFigureRule();

    // The window takes the screen's working area, leaving out the task bar.
    if (QScreen* s = QGuiApplication::primaryScreen()) {
        const QRect area = s->availableGeometry();
        resize(std::min(area.width(), 1100), std::min(area.height(), 720));
    }
    FillCaptions();
}

void MainWindow::FillCaptions() {
    const kv::Captions& c = ws_.captions;
    // Arabic reads from right to left: the whole program turns its layouts.
    QGuiApplication::setLayoutDirection(ws_.settings.Sprache == "ARA" ? Qt::RightToLeft : Qt::LeftToRight);
    TranslateQt(ws_);
    UpdateTitle();
    recentLabel_->setText(Q(c[kv::Cap::RecentProjects]));
    FillRecent();
    title_->setText(Q(ws_.productName));
    subtitle_->setText(Q(c[kv::Cap::WelcomeTitle]) + QStringLiteral("   ") + Q(ws_.settings.VersionText));
    newProject_->setText(Q(c[kv::Cap::MenuNewProject]));
    openData_->setText(Q(c[kv::Cap::MenuOpenProjectData]));
    load_->setText(Q(c[kv::Cap::MenuLoadProject]));
    if (auto* b = findChild<QPushButton*>(QStringLiteral("Refrigerant"))) b->setText(Q(c[kv::Cap::MenuRefrigerant]));
    const std::pair<const char*, kv::Cap> listWords[] = {{"PartsList", kv::Cap::MenuPartsList},
                                                         {"UnitsList", kv::Cap::MenuUnitsList},
                                                         {"PipeList", kv::Cap::MenuPipeList},
                                                         {"FlangeList", kv::Cap::MenuFlangeList},
                                                         {"Options", kv::Cap::MenuOptions}};
    for (const auto& [name, word] : listWords)
        if (auto* b = findChild<QPushButton*>(QString::fromLatin1(name))) b->setText(Q(c[word]));
    save_->setText(Q(c[kv::Cap::MenuSaveProject]));
    saveAs_->setText(Q(c[kv::Cap::MenuSaveProjectAs]));
    delete_->setText(Q(c[kv::Cap::MenuDeleteProject]));
    pipes_->setText(Q(c[kv::Cap::MenuPipeData]));
    zeta_->setText(Q(c[kv::Cap::MenuZetaValues]));
    catalogue_->setText(Q(c[kv::Cap::MenuCatalogue]));
    defaults_->setText(Q(c[kv::Cap::MenuDefaults]));
    const kv::Cap programWords[] = {kv::Cap::MenuDrawing, kv::Cap::MenuPartsProgram, kv::Cap::MenuHeatExchanger,
                                    kv::Cap::MenuColdRoom, kv::Cap::MenuAirConditioning};
    for (std::size_t i = 0; i < programs_.size() && i < std::size(programWords); ++i)
        programs_[i].first->setText(Q(c[programWords[i]]));
    help_->setText(Q(c[kv::Cap::MenuHelp]));
    info_->setText(Q(c[kv::Cap::MenuInformation]));
    printSetup_->setText(Q(c[kv::Cap::MenuPrintSetup]));
    end_->setText(Q(c[kv::Cap::MenuEnd]));
    for (QPushButton* b : languageButtons_) {
        const QString code = b->objectName().mid(5);
        b->setChecked(code == Q(ws_.settings.Sprache));
        b->setToolTip(Q(std::string(kv::LanguageName(code.toStdString()))));
    }
}

void MainWindow::ChooseLanguage(const QString& code) {
    if (kv::ChangeLanguage(ws_, code.toStdString())) {
        // Swedish is kept at once; the others at the end of the run.
        if (code == QLatin1String("SWE")) kv::SaveSettings(ws_);
    }
    FillCaptions();
}

void MainWindow::showEvent(QShowEvent* event) {
    QMainWindow::showEvent(event);
    if (shownOnce_) return;
    shownOnce_ = true;
    QTimer::singleShot(0, this, &MainWindow::AfterFirstShow);
}

void MainWindow::AfterFirstShow() {
    kv::MarkProjectSaved(ws_);
    FillCaptions();
    if (kv::MatchcodeNeeded(ws_)) {
        QApplication::setOverrideCursor(Qt::WaitCursor);
        kv::BuildMatchcode(ws_);
        QApplication::restoreOverrideCursor();
    }
    if (kv::IsPlainStart(ws_)) {
        auto* welcome = new WelcomeDialog(ws_, this);
        welcome->setAttribute(Qt::WA_DeleteOnClose);
        connect(welcome, &QDialog::finished, this, [this] {
            // The language can have changed on the welcome screen.
            kv::LoadCaptions(ws_);
            FillCaptions();
        });
        welcome->open();
    }
    ActOnStatusWord();
}

namespace {
// Opens a screen over the menu without a loop of its own; it deletes itself
// when closed.
template <class Dialog>
Dialog* OpenScreen(Dialog* d) {
    d->setAttribute(Qt::WA_DeleteOnClose);
    d->setWindowModality(Qt::WindowModal);
    d->open();
    return d;
}
}  // namespace

void MainWindow::OpenProjectData() {
    auto* data = OpenScreen(new ProjectDataDialog(ws_, this));
    connect(data, &QDialog::finished, this, [this] {
        UpdateTitle();
        FillRecent();
    });
    connect(data, &ProjectDataDialog::calculationStarted, data, [this, data] {
        auto* scheme = OpenScreen(new SchemeDialog(ws_, data));
        connect(scheme, &SchemeDialog::diagramRequested, scheme, [this, scheme] {
            OpenScreen(new DiagramDialog(ws_, scheme));
            emit diagramRequested(scheme);
        });
    });
}

void MainWindow::NewProjectAction() {
    if (!KeepInput()) return;
    kv::NewProject(ws_);
    kv::MarkProjectSaved(ws_);
    UpdateTitle();
    OpenProjectData();
}

void MainWindow::LoadProjectAction() {
    if (!KeepInput()) return;
    // The project browser; its own button leads to the file dialog.
    OpenScreen(new ProjectBrowserDialog(ws_, this));
    UpdateTitle();
    FillRecent();
}

void MainWindow::OpenRecent(const QString& path) {
    if (!KeepInput()) return;
    if (kv::OpenProjectFromPath(ws_, path.toStdString())) OpenProjectData();
    UpdateTitle();
    FillRecent();
}

void MainWindow::FillRecent() {
    recent_->clear();
    for (const kv::RecentProject& r : kv::ReadRecentProjects(ws_)) {
        auto* item = new QListWidgetItem(Q(kv::RecentProjectLine(r)), recent_);
        item->setData(Qt::UserRole, Q(r.path));
        item->setToolTip(Q(r.path));
    }
    recent_->setVisible(recent_->count() > 0);
    recentLabel_->setVisible(recent_->count() > 0);
}

void MainWindow::UpdateTitle() { setWindowTitle(Q(kv::ProjectTitle(ws_))); }

bool MainWindow::KeepInput() {
    if (!kv::HasUnsavedInput(ws_)) return true;
    const kv::Captions& c = ws_.captions;
    QMessageBox box(QMessageBox::Question, Q(ws_.Title()), Q(c[kv::Cap::UnsavedInputQuestion]),
                    QMessageBox::Yes | QMessageBox::No | QMessageBox::Cancel, this);
    box.setDefaultButton(QMessageBox::Cancel);
    const int answer = box.exec();
    if (answer == QMessageBox::No) return true;
    if (answer != QMessageBox::Yes) return false;
    SaveProjectAction();
    return !kv::HasUnsavedInput(ws_);
}

void MainWindow::SaveProjectAction() {
    // A known file name saves at once, to the file that was opened; else "Save as".
    if (!kv::SaveToOpenFile(ws_)) SaveProjectAsAction();
    UpdateTitle();
    FillRecent();
}

void MainWindow::SaveProjectAsAction() {
    const QString file = AskProjectSavePath(ws_, this, Q(ws_.captions[kv::Cap::MenuSaveProjectAs]));
    if (!file.isEmpty()) kv::SaveProjectToPath(ws_, file.toStdString());
    UpdateTitle();
    FillRecent();
}

void MainWindow::DeleteProjectAction() {
    const QString file = AskProjectOpenPath(ws_, this, Q(ws_.captions[kv::Cap::MenuDeleteProject]));
    if (file.isEmpty()) return;
    if (!ws_.ui.AskYesNo(ws_.Title(), ws_.captions.Message(6) + ws_.lineEnd + file.toStdString())) return;
    if (kv::DeleteProject(ws_, file.toStdString())) ws_.ui.Message(ws_.Title(), ws_.captions.Message(7));
}

void MainWindow::OpenRefrigerantWindow() { OpenScreen(new RefrigerantDialog(ws_, this)); }

void MainWindow::OpenPipeTables() { OpenScreen(new PipeTableDialog(ws_, this)); }

void MainWindow::OpenZetaValues() { OpenScreen(new ZetaDialog(ws_, this)); }

void MainWindow::OpenCatalogueEditor() { OpenScreen(new CatalogueEditorDialog(ws_, this)); }

void MainWindow::OpenDefaults() {
    // The defaults screen is opened with the option mark set.
    ws_.optionMark = 1;
    auto* d = OpenScreen(new DefaultsDialog(ws_, this));
    connect(d, &QDialog::finished, this, [this] {
        ws_.optionMark = 0;
        kv::LoadCaptions(ws_);
        FillCaptions();
    });
}

void MainWindow::ActOnStatusWord() {
    switch (kv::StartActionFor(ws_.statusWord)) {
        case kv::StartAction::ProjectDataScreen: OpenProjectData(); break;
        case kv::StartAction::LoadProjectAndDataScreen: {
            kv::OpenProjectFromPath(ws_, kv::OpenProjectPath(ws_));
            OpenProjectData();
            break;
        }
        case kv::StartAction::CatalogueEditor: OpenCatalogueEditor(); break;
        default: break;  // the parts lists come with their screen
    }
}

void MainWindow::ShowInformation() {
    std::string text = ws_.captions[kv::Cap::InfoText];
    text += ws_.lineEnd + ws_.lineEnd + ws_.productName + " " + ws_.settings.VersionText + ws_.lineEnd +
            ws_.project.DatenVerz;
    ws_.ui.Message(ws_.Title(), text, kv::MessageIcon::Information);
}

void MainWindow::ShowHelp() {
    auto* help = new HelpDialog(ws_, Q(ws_.productName), this);
    help->setAttribute(Qt::WA_DeleteOnClose);
    help->open();
}

void MainWindow::PrintSetup() {
    QPrinter printer;
    QPrintDialog dialog(&printer, this);
    dialog.setWindowTitle(QStringLiteral("Kelvaris Printer Setup"));
    dialog.exec();
}

void MainWindow::EndRun() {
    if (ending_) return;
    if (!KeepInput()) return;
    if (!kv::EndSystem(ws_)) return;
    ending_ = true;
    QThread::msleep(50);
    emit ended();
    close();
}

void MainWindow::closeEvent(QCloseEvent* event) {
    if (ending_) {
        event->accept();
        return;
    }
    // Closing the window is the same as End.
    event->ignore();
    EndRun();
}

}  // namespace kvui
