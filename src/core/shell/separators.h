// Rare character sequences that join several values inside one text item of
// a file. A value never contains its own separator; there is no escaping.
#pragma once

#include <string_view>

namespace kv::sep {

inline constexpr std::string_view LabelValue = "§$&";      // label and value of a result line
inline constexpr std::string_view ValueTail = "&$$";       // value and its trailing part
inline constexpr std::string_view SubLine = "&%!";         // marks a sub-line of a result set
inline constexpr std::string_view TextKey = "$§$";         // text and the key behind it
inline constexpr std::string_view BlockHead = "§§§$$$";    // heads a block inside a result set
inline constexpr std::string_view AuxItem = "§$%";         // auxiliary-data pack, electrical rows
inline constexpr std::string_view CatalogueKey = "#$§";    // catalogue key and text in selection lists
inline constexpr std::string_view DrawField = "§$";        // fields of a drawing element line
inline constexpr std::string_view OilCooler = "//";        // oil cooler flag and electrical standard
inline constexpr std::string_view Text12Parallel = "%&§";  // Text12 and the parallel-line flag
inline constexpr std::string_view PipeMark1 = "#§&";       // marks inside the pipe table files
inline constexpr std::string_view PipeMark2 = "$?";
inline constexpr std::string_view PipeMark3 = "%#";

}  // namespace kv::sep
