#include <gtest/gtest.h>

#include <QFile>
#include <QGuiApplication>
#include <QImage>
#include <QPainter>
#include <QSvgRenderer>
#include <QXmlStreamReader>

#include <cstdlib>
#include <string>

#include "cycle/diagram.h"
#include "refrigerant/registry.h"
#include "render/render.h"
#include "shell/startup.h"
#include "workspace_fixture.h"

namespace {

// The control image of the R134a diagram at -10 / 45 °C, 640 pixels wide.
// KELVARIS_WRITE_CONTROL_IMAGES=1 writes it anew from the current drawing.
const QString kControl = QStringLiteral(KELVARIS_RENDER_TEST_DATA "/r134a_diagram.png");
constexpr int kControlWidth = 640;

class Render : public kvtest::WorkspaceTest {
protected:
    void SetUp() override {
        kvtest::WorkspaceTest::SetUp();
        kv::InstallFactoryData(ws);
        ws.project.VerdArt = 2;
        ws.project.KondArt = 1;
        ws.project.KaelteM = "R134a";
        ws.project.Tver = "-10";
        ws.project.tko = "45";
        kv::DiagramWindow w = kv::OpenDiagramWindow(ws);
        drawing = kv::Play_DiaG(ws, w);
        ASSERT_FALSE(drawing.Empty());
    }
    QString File(const char* name) const { return QString::fromStdString((root / name).string()); }
    kv::DrawingList drawing;
};

// Pixels whose colour differs by more than a trace of antialiasing.
double Mismatch(const QImage& a, const QImage& b) {
    long differing = 0;
    for (int y = 0; y < a.height(); ++y)
        for (int x = 0; x < a.width(); ++x) {
            const QRgb p = a.pixel(x, y), q = b.pixel(x, y);
            const int d = std::max({std::abs(qRed(p) - qRed(q)), std::abs(qGreen(p) - qGreen(q)),
                                    std::abs(qBlue(p) - qBlue(q))});
            if (d > 48) ++differing;
        }
    return static_cast<double>(differing) / (a.width() * a.height());
}

TEST_F(Render, DiagramMatchesTheControlImage) {
    const QImage image = kv::render::ToImage(drawing, kControlWidth);
    ASSERT_EQ(image.width(), kControlWidth);
    ASSERT_EQ(image.height(), kControlWidth * 520 / 640);
    // The cycle is there in blue.
    int blue = 0;
    for (int y = 0; y < image.height(); ++y)
        for (int x = 0; x < image.width(); ++x)
            if (image.pixel(x, y) == qRgb(0, 0, 255)) ++blue;
    EXPECT_GT(blue, 500);

    if (std::getenv("KELVARIS_WRITE_CONTROL_IMAGES")) {
        ASSERT_TRUE(image.save(kControl, "PNG"));
        GTEST_SKIP() << "control image written";
    }
    const QImage control(kControl);
    ASSERT_FALSE(control.isNull()) << kControl.toStdString();
    ASSERT_EQ(control.size(), image.size());
    // Room for another build of the fonts, not for a moved line.
    EXPECT_LT(Mismatch(image.convertToFormat(QImage::Format_RGB32), control.convertToFormat(QImage::Format_RGB32)),
              0.01);
}

TEST_F(Render, PaintKeepsTheAspectInAnyTarget) {
    QImage wide(1000, 300, QImage::Format_RGB32);
    wide.fill(qRgb(10, 20, 30));
    QPainter p(&wide);
    kv::render::Paint(p, drawing, QRectF(0, 0, 1000, 300));
    p.end();
    const QRectF fit = kv::render::FitRect(drawing, QRectF(0, 0, 1000, 300));
    EXPECT_NEAR(fit.width() / fit.height(), 640.0 / 520.0, 1e-9);
    EXPECT_NEAR(fit.center().x(), 500, 1e-9);
    EXPECT_EQ(wide.pixel(5, 150), qRgb(10, 20, 30));  // beside the picture: untouched
    EXPECT_EQ(wide.pixel(static_cast<int>(fit.left()) + 3, 3), qRgb(255, 255, 255));  // its background
    EXPECT_TRUE(kv::render::FitRect(kv::DrawingList{}, QRectF(0, 0, 10, 10)).isEmpty());
}

TEST_F(Render, SvgPdfAndPngFiles) {
    QString error;
    ASSERT_TRUE(kv::render::WritePicture(drawing, File("d.svg"), QStringLiteral("R134a"), &error))
        << error.toStdString();
    QFile svg(File("d.svg"));
    ASSERT_TRUE(svg.open(QIODevice::ReadOnly));
    QXmlStreamReader xml(&svg);
    bool root = false, fluid = false;
    while (!xml.atEnd()) {
        xml.readNext();
        if (xml.isStartElement() && xml.name() == QLatin1String("svg")) {
            root = true;
            EXPECT_EQ(xml.attributes().value(QLatin1String("viewBox")).toString(), QStringLiteral("0 0 640 520"));
        }
        if (xml.isCharacters() && xml.text().contains(QLatin1String("R134a"))) fluid = true;
    }
    EXPECT_FALSE(xml.hasError()) << xml.errorString().toStdString();
    EXPECT_TRUE(root);
    EXPECT_TRUE(fluid);
    // Read back, the SVG is the same drawing.
    QSvgRenderer reader(File("d.svg"));
    ASSERT_TRUE(reader.isValid());
    QImage back(kControlWidth, kControlWidth * 520 / 640, QImage::Format_RGB32);
    back.fill(Qt::white);
    QPainter bp(&back);
    reader.render(&bp, QRectF(0, 0, back.width(), back.height()));
    bp.end();
    EXPECT_LT(Mismatch(back, kv::render::ToImage(drawing, kControlWidth)), 0.02);

    ASSERT_TRUE(kv::render::WritePicture(drawing, File("d.PDF"), {}, &error)) << error.toStdString();
    QFile pdf(File("d.PDF"));
    ASSERT_TRUE(pdf.open(QIODevice::ReadOnly));
    const QByteArray bytes = pdf.readAll();
    EXPECT_GT(bytes.size(), 2000);
    EXPECT_TRUE(bytes.startsWith("%PDF-"));
    EXPECT_TRUE(bytes.trimmed().endsWith("%%EOF"));

    ASSERT_TRUE(kv::render::WritePicture(drawing, File("d.png"), {}, &error));
    EXPECT_EQ(QImage(File("d.png")).width(), kv::render::kDefaultPngWidth);

    // Failures come back as false with a reason.
    EXPECT_FALSE(kv::render::WritePicture(drawing, File("d.txt"), {}, &error));
    EXPECT_FALSE(error.isEmpty());
    EXPECT_FALSE(kv::render::WritePng(drawing, File("no/such/dir/d.png"), 100, &error));
    EXPECT_FALSE(kv::render::WritePdf(drawing, File("no/such/dir/d.pdf"), {}, &error));
    EXPECT_FALSE(kv::render::WriteSvg(kv::DrawingList{}, File("empty.svg"), {}, &error));
}

}  // namespace

int main(int argc, char** argv) {
    QGuiApplication app(argc, argv);
    kv::render::InitRender();
    ::testing::InitGoogleTest(&argc, argv);
    return RUN_ALL_TESTS();
}
