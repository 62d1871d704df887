// The accessory selection screen (ArmSelek): which catalogue series serves
// each of the eighteen component kinds. The series come from the Matchcode
// index of the kind's group, filtered by maker; the choice is kept in the
// grid aktBTsp and written to AddrNeu.LST (Sole.LST in a brine plant) when
// the screen is left.
#pragma once

#include <string>
#include <vector>

#include "catalogue/catalogue.h"
#include "catalogue/matchcode.h"
#include "catalogue/selection.h"

namespace kv {

struct Workspace;

struct AccessorySelectionScreen {
    bool brine = false;
    char letter = 'I';                    // index letter: "C" in a brine plant
    std::vector<SeriesChoice> aktBTsp;    // one row per slot 1..18
    int slot = 1;                         // the kind chosen with bt1..bt18
    std::vector<SeriesEntry> series;      // the group's series of all catalogues
    std::vector<std::string> makers;      // Herstellerlist: catalogue titles
    int maker = -1;
    std::vector<int> shownSeries;         // ReiheList: indices into `series`
    int seriesIndex = -1;                 // into `series`
    std::vector<SeriesArticle> articles;  // BTList
    bool quick = true;                    // SchnellAW; false: EinzelAW
    std::string message;
};

// Opens the screen: the series list file read and filled up to 18 rows.
void OpenAccessorySelection(const Workspace& ws, AccessorySelectionScreen& s);
// bt1..bt18: the kind of a slot, its makers and series.
void ChooseKind(const Workspace& ws, AccessorySelectionScreen& s, int slot);
void ChooseMaker(AccessorySelectionScreen& s, int maker);
// A row of ReiheList: the articles of that series.
void ChooseSeries(const Workspace& ws, AccessorySelectionScreen& s, int shownRow);
// einfuegbutt: the chosen series serves the chosen kind.
bool UseChosenSeries(AccessorySelectionScreen& s);
// delVerd: both parks emptied.
void ClearPreselection(const Workspace& ws);
// ueberN / Verd_UeberN: an article of BTList parked as the main unit of its
// kind; false for a kind that is no main unit or a row out of range.
bool AdoptMainUnit(const Workspace& ws, AccessorySelectionScreen& s, int articleRow);
// The component kind that a slot's series serves.
int KindOfSlot(int slot);
// Leaving: the series list written.
bool LeaveAccessorySelection(const Workspace& ws, const AccessorySelectionScreen& s);
// AuslegStart / StartBauteil: the series list written, then the list
// generation; the message tells the rows of the two lists. False when the
// lists could not be written.
bool StartListGeneration(Workspace& ws, AccessorySelectionScreen& s);

}  // namespace kv
