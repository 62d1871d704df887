#include "ui/defaults_dialog.h"
#include "ui/screen_fit.h"

#include <QDialogButtonBox>
#include <QFormLayout>
#include <QLabel>
#include <QPushButton>
#include <QVBoxLayout>

#include "shell/captions.h"
#include "shell/text.h"
#include "shell/workspace.h"

namespace kvui {

DefaultsDialog::DefaultsDialog(kv::Workspace& ws, QWidget* parent)
    : QDialog(parent), ws_(ws), screen_(kv::OpenDefaultsScreen(ws)) {
    setObjectName(QStringLiteral("Defaults"));
    setWindowTitle(Q(ws.captions[kv::Cap::DefaultsTitle]) + QStringLiteral(" - ") + Q(ws.Title()));
    const kv::Captions& c = ws.captions;
    auto label = [&c](kv::Cap w, const char* unit = "") { return Q(kv::FieldLabel(c[w], unit)); };
    auto* form = new QFormLayout;
    kv::DefaultsScreen& d = screen_;
    // The language, decimal and date boxes show words and examples, not codes.
    std::vector<std::pair<std::string, std::string>> languages;
    for (std::string_view code : kv::kLanguages)
        languages.emplace_back(std::string(code), std::string(kv::LanguageName(code)) + " (" + std::string(code) + ")");
    const std::vector<std::pair<std::string, std::string>> decimals = {{"0", "1,5 → 1.5"}, {"1", "1.5 → 1,5"}};
    std::vector<std::pair<std::string, std::string>> dates;
    for (const char* f : {"1", "2", "3", "4"}) dates.emplace_back(f, kv::DateText(f));
    form->addRow(label(kv::Cap::DataDirectory), bind_.Text(d.DatenVerz, {}, "DatenVerz"));
    form->addRow(label(kv::Cap::ProjectDirectory), bind_.Text(d.ProjektVerz, {}, "ProjektVerz"));
    form->addRow(label(kv::Cap::Language), bind_.Choice(d.Sprache, languages, "Sprache"));
    form->addRow(label(kv::Cap::Currency), bind_.Text(d.Waehrung, {}, "Waehrung"));
    form->addRow(label(kv::Cap::ReportFont), bind_.Text(d.ReportFont, {}, "ReportFont"));
    form->addRow(label(kv::Cap::Installer), bind_.Text(d.InstallText, {}, "InstallText"));
    form->addRow(label(kv::Cap::PipeTable), bind_.Text(d.RohrDatei, {}, "RohrDatei"));
    form->addRow(label(kv::Cap::Drive), bind_.Text(d.Laufwerk, {}, "Laufwerk"));
    form->addRow(label(kv::Cap::DecimalSeparator), bind_.Choice(d.DezimalModus, decimals, "DezimalModus"));
    form->addRow(label(kv::Cap::DateFormat), bind_.Choice(d.DatumFormat, dates, "DatumFormat"));
    form->addRow(label(kv::Cap::ScreenDesign), bind_.Box(d.PictureSet, {"0", "1", "2", "3", "4", "5"}, {}, false, "PictureSet"));
    form->addRow(label(kv::Cap::SamplePicture), bind_.Text(d.SamplePicture, {}, "SamplePicture"));
    form->addRow(label(kv::Cap::CableTable), bind_.Text(d.CableText, {}, "CableText"));
    form->addRow(label(kv::Cap::DefaultCountry), bind_.Text(d.DefaultCountry, {}, "DefaultCountry"));
    form->addRow(label(kv::Cap::HoursPerDay, "h"), bind_.Text(d.hoursPerDay, {}, "HoursPerDay"));
    form->addRow(label(kv::Cap::DaysPerYear, "d"), bind_.Text(d.daysPerYear, {}, "DaysPerYear"));
    form->addRow(label(kv::Cap::EnergyPrice, (ws.settings.Waehrung + "/kWh").c_str()), bind_.Text(d.energyPrice, {}, "EnergyPrice"));
    form->addRow(label(kv::Cap::LoadFactor), bind_.Text(d.loadFactor, {}, "LoadFactor"));
    form->addRow(label(kv::Cap::ReferenceEtaIs), bind_.Text(d.referenceEtaIs, {}, "ReferenceEtaIs"));
    form->addRow(label(kv::Cap::Version), new QLabel(Q(d.version)));
    bind_.Refresh();
    auto* buttons = new QDialogButtonBox(QDialogButtonBox::Ok | QDialogButtonBox::Cancel);
    connect(buttons, &QDialogButtonBox::accepted, this, [this] {
        if (Apply()) accept();
    });
    connect(buttons, &QDialogButtonBox::rejected, this, &QDialog::reject);
    auto* body = new QWidget;
    body->setLayout(form);
    auto* layout = new QVBoxLayout(this);
    layout->addWidget(Scrolled(body), 1);
    layout->addWidget(buttons);
    FitToScreen(ws_, this, QSize(640, 640));
}

bool DefaultsDialog::Apply() { return kv::ApplyDefaults(ws_, screen_); }

}  // namespace kvui
