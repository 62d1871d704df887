#include "catalogue/catalogue.h"

#include "catalogue/record_file.h"
#include "shell/files.h"
#include "shell/numbers.h"
#include "shell/text.h"
#include "shell/workspace.h"

namespace kv {

namespace {

constexpr std::array<int, kSlotCount> kSlotCodes = {250, 200, 300, 350, 50, 500, 600, 700, 400,
                                                    150, 0,   450, 100, 550, 650, 750, 800, 850};
constexpr int kOldStep = 66;
// A record file holds eighteen groups of fifty records.
constexpr long long kRecordFileRecords = static_cast<long long>(kSlotCount) * kGroupRecords;

// The text of a list item: quotes of a plain line dropped, blanks trimmed.
std::string PlainLine(std::string_view line) {
    std::string_view s = Trim(line);
    if (s.size() >= 2 && s.front() == '"' && s.back() == '"') s = s.substr(1, s.size() - 2);
    return std::string(s);
}

}  // namespace

int SlotCode(int slot) { return slot >= 1 && slot <= kSlotCount ? kSlotCodes[static_cast<std::size_t>(slot - 1)] : 0; }

int OldPositionToNew(int position) {
    const int k = (position - 2) / kOldStep;
    if (position >= kOldStep + 2 && (position - 2) % kOldStep == 0 && k >= 1 && k <= 17) return kGroupRecords * k + 2;
    return position;
}

int NewPositionToOld(int position) { return (position - 2) / kGroupRecords * kOldStep + 2; }

int IndexCode(int kind, int slotCode) {
    switch (kind) {
        case ExpansionValves: return 100;
        case Compressors: return 550;
        case Evaporators: return 600;
        case Condensers: return 650;
        case BrineCoolers: return 600;
        case SolenoidValves: return 250;
        default: return slotCode;  // general and brine catalogues, and kinds no table knows
    }
}

char IndexLetter(int kind) { return kind == Brine || kind == BrineCoolers ? 'C' : 'I'; }

int KindFromBase(std::string_view base) {
    if (base.size() < 2) return General;
    const std::string tail = UpperAscii(base.substr(base.size() - 2));
    if (tail == "EX") return ExpansionValves;
    if (tail == "KP") return Compressors;
    if (tail == "VD") return Evaporators;
    if (tail == "KD") return Condensers;
    if (tail == "KA") return Brine;
    if (tail == "MV") return SolenoidValves;
    return General;
}

std::string RecordFileName(std::string_view base) { return std::string(base) + "N.rdm"; }
std::string SeriesFileName(std::string_view base) { return std::string(base) + "I.rdm"; }
std::string AccessoryFileName(std::string_view base) { return std::string(base) + "A.rdm"; }

int CatalogueKind(const Workspace& ws, std::string_view base) {
    const auto path = ResolveName(ws, RecordFileName(base));
    long long records = 0;
    std::string stored;
    {
        RecordFileReader in(path, kArticleLength);
        records = in.RecordCount();
        std::string record;
        if (in.Get(kKindRecord, record)) stored = DecodeArticle(record).Field(1);
    }
    const std::string_view storedText = Trim(stored);
    if (!storedText.empty()) {
        const int value = storedText.front() >= '0' && storedText.front() <= '9' ? storedText.front() - '0' : 0;
        if (value != 0) return value;
    }
    const int kind = KindFromBase(base);
    const std::string text = std::to_string(kind);
    // A catalogue is given its kind on first use; a file too short to hold
    // record 51 is damaged or foreign and is left alone.
    if (records >= kKindRecord && storedText != text) {
        RecordImage image(path, kArticleLength);
        Article head = DecodeArticle(image.Get(kKindRecord));
        head.SetField(1, text);
        image.Put(kKindRecord, EncodeArticle(head));
        image.Save();
    }
    return kind;
}

std::array<std::string, kSlotCount> ReadSeriesNames(const Workspace& ws, std::string_view base) {
    std::array<std::string, kSlotCount> names;
    RecordFileReader in(ResolveName(ws, SeriesFileName(base)), kCatalogueTextLength);
    std::string record;
    for (int i = 0; i < kSlotCount && in.Get(i + 1, record); ++i)
        names[static_cast<std::size_t>(i)] = std::string(Trim(CleanName(1, DecodeText(record))));
    return names;
}

std::array<AccessoryText, kAccessoryTextsPerSlot> ReadAccessoryTexts(const Workspace& ws, std::string_view base,
                                                                       int position) {
    std::array<AccessoryText, kAccessoryTextsPerSlot> texts;
    const long long first = static_cast<long long>(NewPositionToOld(OldPositionToNew(position)) / 66) *
                            kAccessoryTextsPerSlot;
    RecordFileReader in(ResolveName(ws, AccessoryFileName(base)), kCatalogueTextLength);
    std::string record;
    for (int i = 0; i < kAccessoryTextsPerSlot && in.Get(first + i + 1, record); ++i) {
        AccessoryText& t = texts[static_cast<std::size_t>(i)];
        t.flagged = !record.empty() && record.front() == '#';
        t.text = DecodeText(t.flagged ? std::string_view(record).substr(1) : std::string_view(record).substr(0, 55));
    }
    return texts;
}

std::vector<SeriesArticle> ReadSeriesArticles(const Workspace& ws, std::string_view base, int position) {
    std::vector<SeriesArticle> rows;
    if (position < 1) return rows;
    RecordFileReader in(ResolveName(ws, RecordFileName(base)), kArticleLength);
    std::string record;
    for (int r = 0; r < kSeriesRows; ++r) {
        const long long number = static_cast<long long>(position) + r;
        if (!in.Get(number, record)) break;
        Article a = DecodeArticle(record);
        if (EndsSeries(a)) break;
        rows.push_back({number, std::move(a)});
    }
    return rows;
}

std::vector<InstalledCatalogue> ReadCatalogueList(const Workspace& ws) {
    std::vector<InstalledCatalogue> list;
    RecordReader in = OpenIn(ws, "katalg.lst");
    std::string file, title;
    while (in.Read(file)) {
        title.clear();
        in.Read(title);
        const std::string_view f = Trim(file);
        if (f.empty()) continue;
        list.push_back({ListText(f), ListText(f.substr(0, 7)), ListText(title)});
    }
    return list;
}

bool WriteCatalogueList(const Workspace& ws, const std::vector<InstalledCatalogue>& list) {
    OutFile out = OpenOut(ws, "katalg.lst");
    for (const InstalledCatalogue& c : list) out.Write().Item(c.file).Item(c.title).EndLine();
    return out.Close();
}

std::array<std::string, 4> ReadCatalogueScreenState(const Workspace& ws) {
    std::array<std::string, 4> values;
    RecordReader in = OpenIn(ws, "katalg.DAT");
    for (std::string& v : values) in.Read(v);
    return values;
}

bool WriteCatalogueScreenState(const Workspace& ws, const std::array<std::string, 4>& values) {
    OutFile out = OpenOut(ws, "katalg.DAT");
    for (const std::string& v : values) out.Write().Item(v);
    out.Write().EndLine();
    return out.Close();
}

bool CreateCatalogue(const Workspace& ws, std::string_view newBase, int mode, std::string_view sourceBase) {
    const bool copy = mode == 2 && !sourceBase.empty();
    const int kind = copy ? CatalogueKind(ws, sourceBase) : KindFromBase(newBase);
    auto make = [&](const std::string& target, const std::string& source, int recordLength, long long count,
                    auto&& finish) {
        RecordImage out(ResolveName(ws, target), recordLength);
        out.Clear();
        const RecordImage in = copy ? RecordImage(ResolveName(ws, source), recordLength) : RecordImage();
        for (long long n = 1; n <= count; ++n) out.Put(n, copy ? in.Get(n) : std::string());
        finish(out);
        return out.Save();
    };
    const bool records = make(RecordFileName(newBase), RecordFileName(sourceBase), kArticleLength, kRecordFileRecords,
                              [&](RecordImage& f) {
                                  Article head = DecodeArticle(f.Get(kKindRecord));
                                  head.SetField(1, std::to_string(kind));
                                  f.Put(kKindRecord, EncodeArticle(head));
                                  Article first = DecodeArticle(f.Get(1));
                                  first.SetField(1, std::string(kVersionMark));
                                  f.Put(1, EncodeArticle(first));
                              });
    auto nothing = [](RecordImage&) {};
    const bool series = make(SeriesFileName(newBase), SeriesFileName(sourceBase), kCatalogueTextLength, kSlotCount,
                             nothing);
    const bool texts = make(AccessoryFileName(newBase), AccessoryFileName(sourceBase), kCatalogueTextLength,
                            static_cast<long long>(kSlotCount) * kAccessoryTextsPerSlot, nothing);
    return records && series && texts;
}

std::vector<std::string> ReadHiddenProducts(const Workspace& ws) {
    std::vector<std::string> lines;
    RecordReader in = OpenIn(ws, "Prodhide.dat");
    std::string line;
    while (in.ReadLine(line)) {
        std::string text = PlainLine(line);
        if (text.empty()) break;
        lines.push_back(std::move(text));
    }
    return lines;
}

bool WriteHiddenProducts(const Workspace& ws, const std::vector<std::string>& lines) {
    OutFile out = OpenOut(ws, "Prodhide.dat");
    for (const std::string& l : lines)
        if (!Trim(l).empty()) out.Line(Trim(l));
    return out.Close();
}

bool IsHidden(const Workspace& ws, std::string_view text) { return IsHiddenIn(ReadHiddenProducts(ws), text); }

bool IsHiddenIn(const std::vector<std::string>& hidden, std::string_view text) {
    const std::string wanted = UpperAscii(Trim(text));
    if (wanted.empty()) return false;
    for (const std::string& line : hidden)
        if (UpperAscii(line).find(wanted) != std::string::npos) return true;
    return false;
}

}  // namespace kv
