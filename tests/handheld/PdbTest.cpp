#include <gtest/gtest.h>

#include "core/Errors.h"
#include "handheld/Pdb.h"
#include "handheld/PdbRows.h"
#include "handheld/PalmText.h"
#include "handheld/PdbMaker.h"

namespace kvlr {
namespace {

using test::MakePdb;
using test::PutBig;

TEST(Pdb, ReadsFilesPackedFromThePublishedLayout) {
  const std::string bytes = MakePdb("ENV080200_KVLTIMES", {test::Row({"7", "Caf\xE9", ""}), "", "x"});
  const PdbFile f = ReadPdb(bytes);
  EXPECT_EQ(f.name, "ENV080200_KVLTIMES");
  EXPECT_EQ(f.attributes, 8);
  EXPECT_EQ(f.created, 0xB5D1A600u);
  EXPECT_EQ(f.modified, 0xB5D1A600u + 60);
  EXPECT_EQ(std::string(f.type.data(), 4) + std::string(f.creator.data(), 4), "DATAPTAL");
  ASSERT_EQ(f.records.size(), 3u);
  EXPECT_EQ(f.records[1], (PdbRecord{0x40, 0x20, ""}));
  EXPECT_EQ(f.records[2].bytes, "x");
  EXPECT_EQ(DecodePdbRow(f.records[0].bytes), (std::vector<std::string>{"7", "Café", ""}));
  // Our own file read back the same way, and a Euro sign survives the code page.
  PdbFile mine;
  mine.name = "KVLBEST";
  mine.created = PalmSeconds({Date{1970, 1, 1}, 0, 0, 1});
  mine.records = {{0, 0, EncodePdbRow({"1:05.23", "€5"})}};
  const PdbFile back = ReadPdb(WritePdb(mine));
  EXPECT_EQ(back.created, 2082844801u);
  EXPECT_EQ(back.records[0].unique_id, 1u);
  EXPECT_EQ(DecodePdbRow(back.records[0].bytes), (std::vector<std::string>{"1:05.23", "€5"}));
}

TEST(Pdb, RefusesDamagedHeadersAndRecordLists) {
  const std::string good = MakePdb("X", {"abc", "def"});
  auto with_offset = [&](int record, uint32_t offset) {
    std::string bytes = good;
    std::string put;
    PutBig(put, offset, 4);
    bytes.replace(78 + 8 * record, 4, put);
    return bytes;
  };
  auto with_count = [&](uint32_t count) {
    std::string bytes = good, put;
    PutBig(put, count, 2);
    return bytes.replace(76, 2, put);
  };
  const struct {
    std::string bytes;
    std::string words;
  } cases[] = {
      {good.substr(0, 77), "too short"},
      {with_count(40), "list of 40 records"},
      {with_offset(0, 80), "inside the header"},
      {with_offset(1, 5000), "past the end"},
      {with_offset(0, 99), "before record 0"},
  };
  for (const auto& c : cases) {
    try {
      ReadPdb(c.bytes);
      ADD_FAILURE() << c.words;
    } catch (const FormatError& e) {
      EXPECT_NE(std::string(e.what()).find(c.words), std::string::npos) << e.what();
    }
  }
}

TEST(PalmText, FormsTheCompanionReads) {
  EXPECT_EQ(PalmTime(5999), "59.99");
  EXPECT_EQ(PalmTime(6000), "1:00.00");
  EXPECT_EQ(PalmTime(523, true), "   05.23");
  EXPECT_EQ(PalmTime(65023, true), "10:50.23");
  EXPECT_EQ(PalmTime(6523, true), " 1:05.23");
  EXPECT_EQ(PalmStroke(5) + PalmStroke(9) + PalmStroke(3), "IMIMBreast");
  EXPECT_EQ(PalmDistance(50), "   50");
  for (const int lo_hi : {99, 10, 1599, 1112}) EXPECT_EQ(PalmLoHi(PalmAgeGroup(lo_hi)), lo_hi);
  EXPECT_EQ(PalmAgeGroup(1599), "15&O");
  EXPECT_EQ(PalmEventNum(7, "A") + "|" + PalmEventNum(12, ""), "  7A| 12 ");
  EXPECT_EQ(PalmShowName(" Sample ", "Patricia", " "), "Sample, Patricia");
}

}  // namespace
}  // namespace kvlr
