// The rules of the catalogue editor and the catalogue manager. The editor
// shows one group of one catalogue as a grid of 38 columns, edits its cells,
// adds and deletes articles, saves the series, copies or creates catalogues,
// hides series and rebuilds the Matchcode. The manager installs catalogues
// into katalg.lst and removes them. Every save goes through a temporary file
// renamed over the target.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/article.h"
#include "catalogue/catalogue.h"
#include "catalogue/matchcode.h"
#include "shell/captions.h"

namespace kv {

struct Workspace;

inline constexpr int kCatalogueColumns = 38;

// The caption of a group by its code, the component kind it serves.
Cap GroupCaption(int code);
// The caption of a catalogue kind 0 to 7.
Cap KindCaption(int kind);

// The record field a grid column 1 to 38 shows; 0 for none.
int FieldOfColumn(int column);
// The 38 column headings of a group: the fixed ones from the caption tables,
// the rest by the catalogue's kind and the group's position.
std::vector<std::string> EditorHeadings(const Workspace& ws, int kind, int position);

struct CatalogueEditor {
    std::vector<InstalledCatalogue> catalogues;  // katalg.lst
    std::string base, title;
    int kind = 0;
    int slot = 0;                                // 1 to 18, 0 before a group is chosen
    std::array<std::string, kSlotCount> seriesNames;
    std::vector<Article> rows;                   // the articles of the group, 48 at most
    std::vector<std::string> headings;
    bool changed = false;

    int Position() const { return SeriesPosition(SlotCode(slot)); }
};

// Reads katalg.lst and takes up the catalogue and group that katalg.DAT
// remembers, else the first catalogue and slot 1.
void OpenCatalogueEditor(const Workspace& ws, CatalogueEditor& ed);
// Chooses a catalogue and reads its series names; false when it has no
// record file.
bool SelectCatalogue(const Workspace& ws, CatalogueEditor& ed, std::string_view base);
// Chooses a group by slot and reads its articles.
void SelectGroup(const Workspace& ws, CatalogueEditor& ed, int slot);

std::string EditorCell(const CatalogueEditor& ed, int row, int column);
void SetEditorCell(CatalogueEditor& ed, int row, int column, std::string text);
void SetSeriesName(CatalogueEditor& ed, std::string name);
// Inserts a blank article before `row` (at the end for a row past it);
// false when the group holds 48 already.
bool AddArticle(CatalogueEditor& ed, int row);
void DeleteArticle(CatalogueEditor& ed, int row);

// Writes the group's articles, blanks behind them, and its series name.
bool SaveGroup(const Workspace& ws, CatalogueEditor& ed);
// A copy of the present catalogue (mode 2) or a blank one (mode 1) under a
// new base, entered into katalg.lst with its title and chosen.
bool CopyCatalogue(const Workspace& ws, CatalogueEditor& ed, std::string_view newBase, std::string_view title);
bool NewCatalogue(const Workspace& ws, CatalogueEditor& ed, std::string_view newBase, std::string_view title);
// Adds the present series to Prodhide.dat, so selections no longer list it.
bool HideSeries(const Workspace& ws, const CatalogueEditor& ed);

// The catalogue manager's rows.
struct ManagedCatalogue {
    std::string base, title;
    int kind = 0;
    bool present = false;  // the record file exists
};
std::vector<ManagedCatalogue> ListInstalled(const Workspace& ws);
// Bases with a record file in the data directory that katalg.lst lacks.
std::vector<std::string> InstallableBases(const Workspace& ws);
// Adds or removes a catalogue in katalg.lst (its files stay) and rebuilds the
// Matchcode. False when the base is already listed, or not listed.
bool InstallCatalogue(const Workspace& ws, std::string_view base, std::string_view title);
bool RemoveCatalogue(const Workspace& ws, std::string_view base);

}  // namespace kv
