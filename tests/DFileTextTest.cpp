#include "support/Backend.h"
#include "support/RecordFields.h"

#include <memory>
#include <tuple>
#include <utility>

namespace {

std::string Line(DFile const& file, char separator = '|') {
    DName text("old");
    file.ToString(text, separator);
    return Shown(text);
}

DFile Parsed(char const* line) {
    DFile file;
    DName text(line);
    file.FromString(text, '|');
    return file;
}

std::string const noDate = "0/00/1985 12:00:00 AM";

} // namespace

TEST(DFileText, AttributeFlagsAndWordsFollowTheTableOrder) {
    DFile file;
    file.attributes = 0x9F7; // the nine bits that have a text
    // Any negative value means the record's word; 0 is a word to show; 0x400 has no text.
    std::tuple<int, char const*, char const*> const rows[] = {
        {-7, "RDANSHCTE",
         "Read Only, Folder, Archive, Normal, System, Hidden, Compressed, Temporary, Encrypted"},
        {0x20, "--A------", "Archive"},
        {0x6, "----SH---", "System, Hidden"},
        {0, "---------", "No Attributes"},
        {0x400, "---------", "No Attributes"}};
    for (auto const& [word, flags, words] : rows)
        EXPECT_EQ(Shown(file.FormatAttributes(false, word)) + "|" +
                      Shown(file.FormatAttributes(true, word)),
                  std::string(flags) + "|" + words);
}

TEST(DFileText, LineHoldsSixFieldsInLocalTime) {
    ONLY_ON_POSIX_BACKEND("local time follows TZ");
    TempTree zone;
    zone.UseZone("EST5EDT,M3.2.0,M11.1.0");
    FILETIME const created = Utc(2004, 3, 9, 18, 5, 7);
    FILETIME const accessed = Utc(2004, 7, 31, 4, 0, 0);
    FILETIME const written = Utc(2004, 9, 1, 16, 30, 0);
    DFile file(DName("C:\\a|b\\f.txt"), 0x21, 0, &created, &accessed, &written);
    file.SetFileSize(0, 1);
    EXPECT_EQ(Line(file), "C:\\a|b\\f.txt|4294967296|R-A------|3/09/2004 1:05:07 PM|"
                          "9/01/2004 12:30:00 PM|7/31/2004 12:00:00 AM");
    FILETIME const late = Utc(2005, 1, 1, 4, 59, 59); // the long form, and the last hour
    EXPECT_EQ(Shown(file.FormatDate(created)) + "|" + Shown(file.FormatDate(accessed)) + "|" +
                  Shown(file.FormatDate(written)) + "|" + Shown(file.FormatDate(late)) + "|" +
                  Shown(file.FormatNumericalDate(late)),
              "Mar 9, 2004  1:05:07 PM|July 31, 2004  12:00:00 AM|Sept 1, 2004  12:30:00 PM|"
              "Dec 31, 2004  11:59:59 PM|12/31/2004 11:59:59 PM");
    EXPECT_EQ(Line(DFile(), ';'), ";0;---------;" + noDate + ";" + noDate + ";" + noDate);
}

TEST(DFileText, ReadingOddLines) {
    DFile file = Record("old", 0x20, 9);
    file.dataEncrypted = true, file.hashKey = "key", file.next = std::addressof(file);
    DName text("no separator at all");
    file.FromString(text, '|');
    EXPECT_TRUE(file.isEmpty() && !file.dataEncrypted && file.hashKey.isEmpty() &&
                file.attributes == 0 && file.next == std::addressof(file));
    EXPECT_EQ(Shown(text), "no separator at all");

    // Path, size (the low word of the number), attributes; a token that is not the last
    // field needs its separator.
    for (auto const& c :
         {std::make_pair("|12|xSxH--|", "|12|0|6"), std::make_pair("p||| 4294967297|R", "p|0|0|0"),
          std::make_pair("big|4294967297|RDANSHCTE|", "big|1|0|2551"),
          std::make_pair("unclosed|77", "unclosed|0|0|0")}) {
        DFile const parsed = Parsed(c.first);
        EXPECT_EQ(Shown(parsed.fullPath) + "|" + std::to_string(parsed.sizeLow) + "|" +
                      std::to_string(parsed.sizeHigh) + "|" + std::to_string(parsed.attributes),
                  c.second);
    }
}

TEST(DFileText, DatesReadBackFromTheLineToTheSecond) {
    ONLY_ON_POSIX_BACKEND("local time follows TZ");
    TempTree zone;
    zone.UseZone("IST-5:30");
    FILETIME const created = Utc(2004, 3, 9, 18, 5, 7, 999);
    FILETIME const accessed = Utc(2020, 12, 31, 18, 30, 0); // midnight, local
    FILETIME const written = Utc(2010, 6, 15, 6, 45, 59);   // a quarter past noon, local
    DFile file(DName("D:\\dir\\name.ext"), 0x8A7, 123456, &created, &accessed, &written);
    DFile back = Parsed(Line(file).c_str());
    EXPECT_TRUE(back.fullPath == "D:\\dir\\name.ext" && back.sizeLow == 123456 &&
                back.attributes == 0x8A7);
    EXPECT_EQ(Ticks(back.dateCreated), Ticks(Utc(2004, 3, 9, 18, 5, 7)));
    EXPECT_EQ(Ticks(back.dateLastAccessed), Ticks(accessed)); // the last field, closed by the end
    EXPECT_EQ(Ticks(back.dateWritten), Ticks(written));

    // No date, and dates that show as the fallback, read back as no date.
    FILETIME const in2100 = Utc(2100, 1, 1, 0, 0, 0);
    DFile const undated(DName("u"), 0, 0, nullptr, &in2100, nullptr);
    back = Parsed(Line(undated).c_str());
    EXPECT_EQ(Ticks(back.dateCreated) + Ticks(back.dateLastAccessed), 0u);

    // Without a marker the hour is on the 24-hour clock; impossible dates store no date.
    back = Parsed("p|0|-|3/09/2004 23:05:07|3/09/2004 12:05:07 pm|2/30/2004 1:00:00 PM|");
    EXPECT_EQ(Ticks(back.dateCreated), Ticks(Utc(2004, 3, 9, 17, 35, 7)));
    EXPECT_EQ(Ticks(back.dateWritten), Ticks(Utc(2004, 3, 9, 6, 35, 7)));
    EXPECT_EQ(Ticks(back.dateLastAccessed), 0u);
    for (char const* date : {"3/09/2004 13:05:07 PM", "3/09/2004 0:05:07 AM", "3/09/2004 24:00:00",
                             "13/09/2004 1:05:07 PM", "3/09/2004 1:60:07 PM", "3/09/2004 1:05",
                             "99999/99999/99999 99999:99999:99999", ""}) {
        back = Parsed(("p|0|-|" + std::string(date) + "|").c_str());
        EXPECT_EQ(Ticks(back.dateCreated), 0u) << date;
    }

    // Text behind the sixth field is not read.
    back = Parsed("p|1|-|||3/09/2004 12:00:00 AM|tail|more");
    EXPECT_EQ(Ticks(back.dateLastAccessed), Ticks(Utc(2004, 3, 8, 18, 30, 0)));
}

TEST(DFileText, ReportBlockHasSixLabelledLinesInUtc) {
    TempTree tree;
    tree.UseZone("EST5EDT,M3.2.0,M11.1.0"); // the report ignores the zone and the valid years
    DFile file = Record("Z:\\dir\\old.bin", 0, 0x1FFFFFFFF);
    file.SetDateCreated(Utc(2004, 3, 9, 18, 5, 7));
    file.SetDateWritten(Utc(2100, 12, 31, 23, 59, 59));
    EXPECT_EQ(Report(tree, file), "Z:\\dir\\old.bin\n"
                                  "Creation Date   : [03/09/2004 18:05:07]\n"
                                  "Last Access Date: [01/01/1601 00:00:00]\n"
                                  "Write Date      : [12/31/2100 23:59:59]\n"
                                  "Size            : 8589934591\n"
                                  "Attributes      : ---------\n"
                                  "\n");
    FileOper closed;
    EXPECT_FALSE(file.TextWrite(closed));
}
