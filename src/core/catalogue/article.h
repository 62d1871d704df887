// The catalogue article: one fixed record of 570 bytes in 39 blank-padded
// text fields, in the old single-byte DOS code page. In memory the fields are
// UTF-8 without their padding; numbers stay text and are read when used.
#pragma once

#include <array>
#include <string>
#include <string_view>

namespace kv {

inline constexpr int kArticleLength = 570;
inline constexpr int kArticleFieldCount = 39;
// Record lengths of the series file and the accessory text file.
inline constexpr int kCatalogueTextLength = 128;

// Where a field stands in the record (0-based offset) and how long it is.
struct ArticleField {
    int offset;
    int length;
};
// Fields 1 to 39 at index 0 to 38.
extern const std::array<ArticleField, kArticleFieldCount> kArticleFields;

// Field numbers with a meaning of their own.
namespace field {
inline constexpr int Type = 1;           // type designation
inline constexpr int Size = 2;           // kv value, swept volume or volume, by kind
inline constexpr int OrderNumber = 3;
inline constexpr int Connection = 4;     // connection size text
inline constexpr int Description = 5;
inline constexpr int UnitCode = 7;
inline constexpr int Weight = 8;         // kg
inline constexpr int PMax = 16;          // bar gauge
inline constexpr int Rated1 = 17;        // capacity at the reference fluid, or dp max of a valve
inline constexpr int Rated2 = 18;        // capacity at the project's fluid, power, or dp min
inline constexpr int Price = 19;
inline constexpr int FirstAccessory = 20;  // five blocks of four: count, order number, type I, type II
inline constexpr int AccessoryBlocks = 5;
}  // namespace field

struct Article {
    std::array<std::string, kArticleFieldCount> fields;  // UTF-8, trailing blanks dropped

    // Field by its number 1 to 39; an empty text for any other number.
    const std::string& Field(int number) const;
    void SetField(int number, std::string text);
    // The leading value of a field by the program's number rule.
    double Number(int number) const;
};

// Cuts a record into its fields; a short record reads as if padded with
// blanks. Each field goes through OemToAnsi.
Article DecodeArticle(std::string_view record);
// The 570 bytes of an article in the old code page, each field cut or
// padded with blanks to its length.
std::string EncodeArticle(const Article& article);

// The record that ends a series: size, connection, capacity and power all
// read 0.
bool EndsSeries(const Article& article);

// UTF-8 text back to the old single-byte code page, so that OemToAnsi gives
// the text again. Characters the code page cannot hold become "?".
std::string AnsiToOem(std::string_view utf8);

// A text of a list file as UTF-8: valid UTF-8 stands, anything else was
// written by the old program and is read through OemToAnsi.
std::string ListText(std::string_view text);

// A text record of the catalogue files as UTF-8, padding blanks and NULs
// dropped at the end.
std::string DecodeText(std::string_view record);

}  // namespace kv
