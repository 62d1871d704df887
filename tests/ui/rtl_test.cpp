// Arabic, offscreen: the labels' figures and units are left-to-right
// isolates, fields of figures run left to right, the pictures are saved.
#include <gtest/gtest.h>

#include <QApplication>
#include <QLabel>
#include <QLineEdit>
#include <QTest>

#include "project/project_file.h"
#include "shell/bidi_text.h"
#include "shell/captions.h"
#include "shell/startup.h"
#include "ui/diagram_dialog.h"
#include "ui/main_window.h"
#include "ui/project_data_dialog.h"
#include "ui/qt_interface.h"
#include "ui/scheme_dialog.h"
#include "workspace_fixture.h"

namespace {

class RightToLeft : public kvtest::WorkspaceTest {
protected:
    void SetUp() override {
        kvtest::WorkspaceTest::SetUp();
        kv::PrepareWorkspace(ws);
        std::string type = "HeatP";
        const std::string dir = (ws.DataDir() / "samples").string() + "/";
        ASSERT_TRUE(kv::LoadProject(ws, type, dir + "Brine_R410A.prj", dir));
        ws.project.AnlagenTyp = type;
    }
    void TearDown() override {
        QGuiApplication::setLayoutDirection(Qt::LeftToRight);
        kvtest::WorkspaceTest::TearDown();
    }
};

TEST_F(RightToLeft, ArabicKeepsFiguresAsAnEngineerWritesThem) {
    kvui::MainWindow window(ws);
    ASSERT_TRUE(kv::ChangeLanguage(ws, "ARA"));
    window.FillCaptions();
    ASSERT_EQ(QGuiApplication::layoutDirection(), Qt::RightToLeft);
    const QString lri = kvui::Q(std::string(kv::kLeftToRightIsolate));
    const QByteArray shots = qgetenv("KV_SCREENSHOTS");
    auto shoot = [&shots](QWidget& w, const char* name) {
        if (!shots.isEmpty())
            w.grab().save(QString::fromLocal8Bit(shots) + QLatin1Char('/') + QLatin1String(name) + ".png");
    };

    kvui::ProjectDataDialog data(ws);
    data.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&data));
    data.grab();  // every label painted once
    int units = 0;
    for (QLabel* l : data.findChildren<QLabel*>()) {
        if (!l->text().contains(QStringLiteral("\u00b0C"))) continue;
        ++units;
        EXPECT_TRUE(l->text().contains(lri)) << l->text().toStdString();
    }
    EXPECT_GE(units, 4);
    auto* tver = data.findChild<QLineEdit*>(QStringLiteral("Tver"));
    EXPECT_EQ(tver->layoutDirection(), Qt::LeftToRight);
    EXPECT_EQ(tver->text().toStdString(), ws.project.Tver);  // the field's text is the record's, unmarked
    shoot(data, "project_data_ARA");

    kvui::SchemeDialog scheme(ws);
    scheme.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&scheme));
    shoot(scheme, "plant_scheme_ARA");
    kvui::DiagramDialog diagram(ws);
    diagram.show();
    ASSERT_TRUE(QTest::qWaitForWindowExposed(&diagram));
    shoot(diagram, "diagram_ARA");
}

}  // namespace
