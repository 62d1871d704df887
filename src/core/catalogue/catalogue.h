// A catalogue: the record file <base>N.rdm of the articles, the series file
// <base>I.rdm with one series name per slot and the accessory text file
// <base>A.rdm, named after a base of seven characters; the list katalg.lst of
// the installed catalogues; the slots and kinds that tie a series to a
// component group.
#pragma once

#include <array>
#include <string>
#include <string_view>
#include <vector>

#include "catalogue/article.h"

namespace kv {

struct Workspace;

inline constexpr int kSlotCount = 18;
inline constexpr int kSeriesRows = 48;      // articles of one series at most
inline constexpr int kGroupRecords = 50;    // records of one group in the record file
inline constexpr int kAccessoryTextsPerSlot = 6;
// First field of record 1 of every record file.
inline constexpr std::string_view kVersionMark = "§$2000%&";
// The record that keeps the catalogue kind in its first field.
inline constexpr long long kKindRecord = 51;

// Group code of slot 1 to 18; 0 for slot 11 and for a slot out of range.
int SlotCode(int slot);
// The series position of a group: its code + 2. Row r (from 0) of the series
// stands at record position + r of the record file.
inline int SeriesPosition(int code) { return code + 2; }
// Older lists count positions in steps of 66: 66 k + 2 (k = 1..17) becomes
// 50 k + 2; every other value passes.
int OldPositionToNew(int position);
// The old-style position of a group: its number in record order times 66 + 2.
int NewPositionToOld(int position);

// Catalogue kinds 0 to 7.
enum CatalogueKindValue { General = 0, ExpansionValves, Compressors, Evaporators, Condensers, Brine, BrineCoolers,
                          SolenoidValves };
// The code of the index that lists a series of slot code `slotCode` in a
// catalogue of `kind`: kinds 0 and 5 by the slot's own code, the others a
// fixed code.
int IndexCode(int kind, int slotCode);
// "C" for kinds 5 and 6, "I" for the others.
char IndexLetter(int kind);
// The kind that the last two letters of a base tell, compared in capitals.
int KindFromBase(std::string_view base);

// File names of a catalogue.
std::string RecordFileName(std::string_view base);     // <base>N.rdm
std::string SeriesFileName(std::string_view base);     // <base>I.rdm
std::string AccessoryFileName(std::string_view base);  // <base>A.rdm

// The kind of a catalogue: the value of the first character of record 51's
// first field when it is not 0, else the kind its base's letters tell, which
// is then written back into record 51 (only into a file that has it).
int CatalogueKind(const Workspace& ws, std::string_view base);

// The eighteen series names of <base>I.rdm in slot order, blank where a slot
// is empty or the file ends.
std::array<std::string, kSlotCount> ReadSeriesNames(const Workspace& ws, std::string_view base);

// One text of the accessory file: a record beginning with "#" gives the
// other 127 characters and sets the flag, any other its first 55.
struct AccessoryText {
    std::string text;
    bool flagged = false;
};
// The six accessory texts of the group at series position `position`.
std::array<AccessoryText, kAccessoryTextsPerSlot> ReadAccessoryTexts(const Workspace& ws, std::string_view base,
                                                                       int position);

// An article together with its record number.
struct SeriesArticle {
    long long record = 0;
    Article article;
};
// The articles of the series at `position`, read from the record file opened
// once: at most 48, up to the first record that ends a series or the end of
// the file.
std::vector<SeriesArticle> ReadSeriesArticles(const Workspace& ws, std::string_view base, int position);

// katalg.lst: the installed catalogues, two values a row.
struct InstalledCatalogue {
    std::string file;   // as the list names it
    std::string base;   // its first seven characters
    std::string title;
};
std::vector<InstalledCatalogue> ReadCatalogueList(const Workspace& ws);
bool WriteCatalogueList(const Workspace& ws, const std::vector<InstalledCatalogue>& list);

// katalg.DAT: one row of four values that the catalogue screens keep.
std::array<std::string, 4> ReadCatalogueScreenState(const Workspace& ws);
bool WriteCatalogueScreenState(const Workspace& ws, const std::array<std::string, 4>& values);

// Creates the three files of `newBase`: mode 1 blank, mode 2 copied from
// `sourceBase`. Record 1 takes the version mark and record 51 the kind (of
// the source in mode 2, of the new base's letters in mode 1).
bool CreateCatalogue(const Workspace& ws, std::string_view newBase, int mode, std::string_view sourceBase = {});

// Prodhide.dat: true when a line before the first blank one holds `text`,
// compared in capitals. An empty text is never hidden.
bool IsHidden(const Workspace& ws, std::string_view text);
// The same test against lines already read.
bool IsHiddenIn(const std::vector<std::string>& hidden, std::string_view text);
// Reads the lines up to the first blank one, and writes them back.
std::vector<std::string> ReadHiddenProducts(const Workspace& ws);
bool WriteHiddenProducts(const Workspace& ws, const std::vector<std::string>& lines);

}  // namespace kv
