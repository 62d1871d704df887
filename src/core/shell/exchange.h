// KELVData.dat: the exchange file between the programs of the family. Every
// item stands on its own line. The receiving program reads it at start and
// writes it back with two zeros, so a status is consumed exactly once.
#pragma once

#include <array>
#include <string>

namespace kv {

struct Workspace;

inline constexpr const char* kExchangeFile = "KELVData.dat";
inline constexpr int kExchangeItems = 27;

// Status words read at start.
namespace status {
inline constexpr int Normal = 0;
inline constexpr int DrawingProgram = 1;      // written before starting the drawing program
inline constexpr int OpenDataScreen = 108;
inline constexpr int LoadProject = 117;
inline constexpr int OpenDataScreen2 = 118;
inline constexpr int CatalogueEditor = 119;
inline constexpr int PipeList = 120;
}  // namespace status

// What a start does with the status word.
enum class StartAction { MainMenu, ProjectDataScreen, LoadProjectAndDataScreen, CatalogueEditor, PipeListScreen };
StartAction StartActionFor(int statusWord);

struct ExchangeData {
    int flag = 0;    // 1: something to take over
    int status = 0;  // code of the caller
    // Items 3 to 27 by their number; index 0..2 unused. Item 20 is a number.
    std::array<std::string, kExchangeItems + 1> item{};
    double number20 = 0.0;

    std::string& ProjectFile() { return item[3]; }
    std::string& ProjectDirectory() { return item[4]; }
    std::string& ProjectName() { return item[10]; }
    std::string& Description() { return item[11]; }
    std::string& Refrigerant() { return item[12]; }
    std::string& PlantType() { return item[17]; }
    std::string& Language() { return item[21]; }
};

// Reads the exchange file: flag and status; the rest only when both are not 0.
ExchangeData ReadExchangeFile(const Workspace& ws);
// Writes all 27 items.
bool WriteExchangeFile(const Workspace& ws, const ExchangeData& data);
// Writes flag and status with the project's own items filled in (project
// file, directory, name, description, refrigerant, plant type, language, and
// for a "PUMP" plant its pump text in item 18).
bool WriteExchangeFile(Workspace& ws, int flag, int statusWord);
// Reads flag and status and writes the file back with two zeros.
ExchangeData ConsumeExchangeFile(Workspace& ws);

}  // namespace kv
