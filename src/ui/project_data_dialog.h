// The project data screen (Projektdaten): every field, box, check and the two
// line grids, bound to the core model of its rules.
#pragma once

#include <QDialog>

#include <memory>

#include "project/data_screen.h"
#include "project/project.h"
#include "ui/bindings.h"

class QTableWidget;
class QPushButton;
class QLabel;
class QCheckBox;
class QComboBox;
class QLineEdit;

namespace kv { struct Workspace; }

namespace kvui {

class ProjectDataDialog : public QDialog {
    Q_OBJECT
public:
    explicit ProjectDataDialog(kv::Workspace& ws, QWidget* parent = nullptr);

    kv::DataScreen& Model() { return screen_; }
    // Writes the record and the screen model into every widget.
    void Refresh();
    // The calculate button: the input check (boxes, and the error list above
    // four errors), then the plant scheme screen.
    bool Calculate();
    // The compressor search; its swept volume goes into KompHub.
    void SearchCompressor();
    // Save, Save as, Load through a file dialog.
    void Save();
    void SaveAs();
    void Load();

    // Cancel and Escape: the project goes back to what it was when the
    // screen opened (or was last loaded or saved on it).
    void reject() override;

signals:
    // The check passed and the record holds the calculation's input.
    void calculationStarted();

protected:
    void showEvent(QShowEvent* event) override;

private:
    QWidget* BuildProjectFrame();
    QWidget* BuildOperatingFrame();
    QWidget* BuildPlantFrame();
    QWidget* BuildDesignFrame();
    QWidget* BuildGrids();
    void FillGrids();
    void ArmaturEdited(int row, int column);
    void GeometrEdited(int row, int column);
    void UpdateLight();
    void ShowMessages(const kv::InputCheck& check);

    kv::Workspace& ws_;
    kv::DataScreen screen_;
    kv::Project before_;
    Bindings bind_;
    QTableWidget* armatur_ = nullptr;
    QTableWidget* geometr_ = nullptr;
    QPushButton* calculate_ = nullptr;
    QLabel* evapMedium_ = nullptr;
    QLabel* condMedium_ = nullptr;
    QCheckBox* eco_ = nullptr;
    QCheckBox* bypass_ = nullptr;
    QCheckBox* fourWay_ = nullptr;
    QCheckBox* oil_ = nullptr;
    QCheckBox* parallel_ = nullptr;
    QLineEdit* inverterMin_ = nullptr;
    QLineEdit* inverterMax_ = nullptr;
    QLineEdit* lkondl_ = nullptr;
    QLineEdit* kompHub_ = nullptr;
    QLineEdit* leistung_ = nullptr;
    QComboBox* location_ = nullptr;
    bool filling_ = false;
};

}  // namespace kvui
