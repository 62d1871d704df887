// Every landed screen on a 1366 x 768 laptop in every language: no window
// larger than the screen, and in English, German and Russian no label,
// button or check box cut. KV_SCREENSHOTS names a folder for the pictures.
#include <gtest/gtest.h>

#include <QAbstractButton>
#include <QApplication>
#include <QLabel>
#include <QScrollArea>
#include <QTest>

#include <functional>

#include "project/project_file.h"
#include "shell/captions.h"
#include "shell/startup.h"
#include "ui/catalogue_dialogs.h"
#include "ui/defaults_dialog.h"
#include "ui/diagram_dialog.h"
#include "ui/help_dialog.h"
#include "ui/main_window.h"
#include "ui/cost_dialogs.h"
#include "ui/list_dialogs.h"
#include "ui/load_split_dialog.h"
#include "ui/ped_dialog.h"
#include "ui/report_dialog.h"
#include "ui/viewer_dialog.h"
#include "ui/project_data_dialog.h"
#include "ui/qt_interface.h"
#include "ui/scheme_dialog.h"
#include "ui/tables_dialogs.h"
#include "ui/welcome_dialog.h"
#include "workspace_fixture.h"

namespace {

constexpr int kLaptopWidth = 1366;
constexpr int kLaptopHeight = 768;

// Text cut at a window's edge or squeezed below what it needs, for the
// visible labels and buttons of `screen`; a widget inside a scroll area can
// be scrolled to and is measured only against its own size.
std::vector<QString> CutTexts(QWidget& screen) {
    std::vector<QString> cut;
    const QRect window(QPoint(0, 0), screen.size());
    auto check = [&](QWidget* w, const QString& text) {
        if (!w->isVisibleTo(&screen) || text.trimmed().isEmpty()) return;
        const bool squeezed = w->width() < w->minimumSizeHint().width();
        bool scrolls = false;
        for (QWidget* p = w->parentWidget(); p && p != &screen; p = p->parentWidget())
            if (qobject_cast<QScrollArea*>(p)) scrolls = true;
        const QRect at(w->mapTo(&screen, QPoint(0, 0)), w->size());
        if (squeezed || (!scrolls && !window.contains(at)))
            cut.push_back(QString::fromLatin1(w->metaObject()->className()) + QLatin1Char(' ') + w->objectName() +
                          QStringLiteral(": ") + text);
    };
    for (QLabel* l : screen.findChildren<QLabel*>())
        if (!l->wordWrap()) check(l, l->text());
    for (QAbstractButton* b : screen.findChildren<QAbstractButton*>()) check(b, b->text());
    return cut;
}

class Fit : public kvtest::WorkspaceTest {
protected:
    void SetUp() override {
        kvtest::WorkspaceTest::SetUp();
        kv::PrepareWorkspace(ws);
        ws.statusWord = 0;
        std::string type = "HeatP";
        const std::string dir = (ws.DataDir() / "samples").string() + "/";
        ASSERT_TRUE(kv::LoadProject(ws, type, dir + "Brine_R410A.prj", dir));
        ws.project.AnlagenTyp = type;
    }
};

TEST_F(Fit, EveryScreenFitsALaptopInEveryLanguage) {
    const std::vector<std::pair<const char*, std::function<QWidget*()>>> screens = {
        {"main_menu", [this] { return new kvui::MainWindow(ws); }},
        {"project_data", [this] { return new kvui::ProjectDataDialog(ws); }},
        {"plant_scheme", [this] { return new kvui::SchemeDialog(ws); }},
        {"diagram", [this] { return new kvui::DiagramDialog(ws); }},
        {"defaults", [this] { return new kvui::DefaultsDialog(ws); }},
        {"pipe_tables", [this] { return new kvui::PipeTableDialog(ws); }},
        {"zeta_values", [this] { return new kvui::ZetaDialog(ws); }},
        {"catalogue_editor", [this] { return new kvui::CatalogueEditorDialog(ws); }},
        {"catalogue_manager", [this] { return new kvui::CatalogueManagerDialog(ws); }},
        {"help", [this] { return new kvui::HelpDialog(ws, QStringLiteral("Kelvaris")); }},
        {"welcome", [this] { return new kvui::WelcomeDialog(ws); }},
        {"parts_list", [this] { return new kvui::ListDialog(ws, QStringLiteral("Stklst.DAT")); }},
        {"line_electric", [this] { return new kvui::LineElectricDialog(ws); }},
        {"order_numbers", [this] { return new kvui::OrderNumbersDialog(ws); }},
        {"ped_protocol", [this] { return new kvui::PedDialog(ws); }},
        {"costing", [this] { return new kvui::ExportDialog(ws, kv::CostingMode::Costing); }},
        {"cost_data", [this] { return new kvui::CostDataDialog(ws); }},
        {"report", [this] { return new kvui::ReportDialog(ws); }},
        {"scheme_viewer", [this] { return new kvui::ViewerDialog(ws, QStringLiteral("RIFliess.dat")); }},
        {"load_split", [this] { return new kvui::LoadSplitDialog(ws, false); }},
    };
    const QByteArray shots = qgetenv("KV_SCREENSHOTS");
    for (std::string_view code : kv::kLanguages) {
        const std::string language(code);
        ASSERT_TRUE(kv::ChangeLanguage(ws, language)) << language;
        const bool readLabels = language == "ENG" || language == "GER" || language == "RUS";
        for (const auto& [name, make] : screens) {
            SCOPED_TRACE(std::string(name) + " " + language);
            std::unique_ptr<QWidget> screen(make());
            screen->show();
            ASSERT_TRUE(QTest::qWaitForWindowExposed(screen.get()));
            const QSize size = screen->frameGeometry().size();
            EXPECT_LE(size.width(), kLaptopWidth);
            EXPECT_LE(size.height(), kLaptopHeight);
            if (readLabels)
                for (const QString& text : CutTexts(*screen)) ADD_FAILURE() << "cut: " << text.toStdString();
            if (!shots.isEmpty() && readLabels)
                screen->grab().save(QString::fromLocal8Bit(shots) + QLatin1Char('/') + QLatin1String(name) +
                                    QLatin1Char('_') + kvui::Q(language) + QStringLiteral(".png"));
            screen->hide();
        }
    }
}

}  // namespace

namespace {

TEST_F(Fit, AScreenKeepsTheSizeTheUserGaveIt) {
    {
        kvui::ProjectDataDialog data(ws);
        data.show();
        ASSERT_TRUE(QTest::qWaitForWindowExposed(&data));
        data.resize(1000, 640);
        data.hide();
    }
    kvui::ProjectDataDialog again(ws);
    EXPECT_EQ(again.size(), QSize(1000, 640));
}

}  // namespace
