#include <gtest/gtest.h>

#include "shell/records.h"
#include "workspace_fixture.h"

using kv::RecordReader;
using kv::RecordWriter;

TEST(RecordWriter, QuotedStringsPlainNumbersCrLf) {
    RecordWriter w;
    w.Item("Project 1").Item(3).Item(2.5).Item(-0.125).Item("").EndLine();
    w.Line("plain line");
    w.Item(1e20).EndLine();
    EXPECT_EQ(w.Text(), "\"Project 1\",3,2.5,-0.125,\"\"\r\nplain line\r\n1E+20\r\n");
}

TEST(RecordReader, ReadsItemsByCountAcrossLines) {
    RecordReader r("\"a, b\",12,  3.5 ,\"x\"\r\n\r\n7\n\"8.25\",,last item  \r\n");
    std::string s;
    double d = -1;
    int i = -1;
    ASSERT_TRUE(r.Read(s));
    EXPECT_EQ(s, "a, b");  // a comma inside quotes is text
    ASSERT_TRUE(r.Read(i));
    EXPECT_EQ(i, 12);
    ASSERT_TRUE(r.Read(d));
    EXPECT_EQ(d, 3.5);
    ASSERT_TRUE(r.Read(s));
    EXPECT_EQ(s, "x");
    ASSERT_TRUE(r.Read(s));  // an empty line is an empty item
    EXPECT_EQ(s, "");
    ASSERT_TRUE(r.Read(i));
    EXPECT_EQ(i, 7);
    ASSERT_TRUE(r.Read(d));  // a quoted item where a number is expected
    EXPECT_EQ(d, 8.25);
    ASSERT_TRUE(r.Read(d));  // an empty item is 0
    EXPECT_EQ(d, 0);
    ASSERT_TRUE(r.Read(s));
    EXPECT_EQ(s, "last item");
    EXPECT_TRUE(r.AtEnd());
    // Past the end the targets keep their values.
    s = "kept";
    i = 99;
    EXPECT_FALSE(r.Read(s));
    EXPECT_FALSE(r.Read(i));
    EXPECT_EQ(s, "kept");
    EXPECT_EQ(i, 99);
}

TEST(RecordReader, IntegersRoundHalfToEvenAndLinesComeWhole) {
    RecordReader r("2.5,3.5,\"4.5\",1e12\r\n\"whole\", line\r\nend");
    int a = 0, b = 0, c = 0, big = 17;
    r.Read(a);
    r.Read(b);
    r.Read(c);
    r.Read(big);
    EXPECT_EQ(a, 2);
    EXPECT_EQ(b, 4);
    EXPECT_EQ(c, 4);
    EXPECT_EQ(big, 17);  // overflow leaves the target
    std::string line;
    ASSERT_TRUE(r.ReadLine(line));
    EXPECT_EQ(line, "\"whole\", line");
    ASSERT_TRUE(r.ReadLine(line));
    EXPECT_EQ(line, "end");
    EXPECT_FALSE(r.ReadLine(line));
}

TEST(RecordReader, RoundTripOfWhatTheWriterWrote) {
    RecordWriter w;
    const std::vector<double> values = {0, -1.5, 273.15, 1.0 / 7.0, 1e-12, 6.5e15};
    w.Item("Kälte §$% text").Item(-42);
    for (double v : values) w.Item(v);
    w.EndLine();
    RecordReader r(w.Take());
    std::string s;
    int i = 0;
    r.Read(s);
    r.Read(i);
    EXPECT_EQ(s, "Kälte §$% text");
    EXPECT_EQ(i, -42);
    for (double v : values) {
        double d = -99;
        ASSERT_TRUE(r.Read(d));
        EXPECT_EQ(d, v);
    }
}

TEST(RecordReader, DamagedTextNeverThrowsNorHangs) {
    for (const std::string& bad : kvtest::DamagedContents("\"a\",1,2.5\r\n\"b\",3\r\n")) {
        RecordReader r(bad);
        std::string s;
        double d;
        int guard = 0;
        while ((r.Read(s) || r.Read(d)) && ++guard < 1000000) {
        }
        EXPECT_LT(guard, 1000000);
    }
    RecordReader open("\"never closed\r\nnext");
    std::string s;
    open.Read(s);
    EXPECT_EQ(s, "never closed");  // an open quote ends at the line end
    open.Read(s);
    EXPECT_EQ(s, "next");
}

TEST(HeadFields, TwentyFourLinesAndTheKeyOfTheFourth) {
    RecordWriter w;
    for (int i = 1; i <= 24; ++i) w.Item(i == 4 ? "Parts list$§$KEY-17$§$rest" : "head " + std::to_string(i)).EndLine();
    w.Item("body").EndLine();
    RecordReader r(w.Take());
    const kv::HeadFields h = kv::ReadHeadFields(r, 2);
    ASSERT_EQ(h.lines.size(), 24u);
    EXPECT_EQ(h.lines[23], "head 24");
    EXPECT_EQ(h.keyText, "KEY-17$§$rest");
    std::string next;
    r.Read(next);
    EXPECT_EQ(next, "body");

    RecordReader shortHead("\"only\"\r\n");
    const kv::HeadFields s = kv::ReadHeadFields(shortHead, 2);
    EXPECT_EQ(s.lines.size(), 24u);
    EXPECT_EQ(s.keyText, "");
}

TEST(RecordReader, EmptyLinesAreItemsAndTheEndMarkEndsTheText) {
    // A Geometr cell and its empty line, a trailing comma, then the end mark
    // of an old editor with text behind it.
    RecordReader r("\"10\"\r\n\r\n\"8\"\r\n  \r\n\"a\",\r\n\"b\"\r\n\x1a\"after\",\"mark\"\r\n");
    std::vector<std::string> items;
    std::string s;
    while (!r.AtEnd()) {
        const std::size_t before = items.size();
        if (r.Read(s)) items.push_back(s);
        ASSERT_LT(items.size(), 10u);
        if (items.size() == before) break;  // a read that fails must leave the reader at its end
    }
    EXPECT_EQ(items, (std::vector<std::string>{"10", "", "8", "", "a", "", "b"}));
    EXPECT_TRUE(r.AtEnd());
    s = "kept";
    EXPECT_FALSE(r.Read(s));
    EXPECT_EQ(s, "kept");
    // Whole lines end at the mark as well.
    RecordReader lines("one\r\ntwo\x1a" "three\r\nfour\r\n");
    std::vector<std::string> read;
    while (lines.ReadLine(s)) read.push_back(s);
    EXPECT_EQ(read, (std::vector<std::string>{"one", "two"}));
}

TEST(RecordReader, TextComesOutAsUtf8) {
    // The old code page's ü (0xFC) and € (0x80); UTF-8 stays as it is.
    RecordReader r("\"K\xFChlhaus\",\"\x80 5\",\"K\xC3\xBChlhaus\"\r\nStra\xDF" "e\r\n");
    std::string a, b, c, line;
    ASSERT_TRUE(r.Read(a) && r.Read(b) && r.Read(c) && r.ReadLine(line));
    EXPECT_EQ(a, "K\xC3\xBChlhaus");
    EXPECT_EQ(b, "\xE2\x82\xAC 5");
    EXPECT_EQ(c, "K\xC3\xBChlhaus");
    EXPECT_EQ(line, "Stra\xC3\x9F" "e");
}
