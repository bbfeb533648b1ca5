#include "channels/modSubaudible.h"

#include "channels/colSubaudible.h"
#include "platform/Error.h"
#include "tests/channels/ChannelFixture.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/Temporary.h"

namespace {
TEST(SubaudibleCodes, FilesNameTheirColumnsInAnyOrderAndCase) {
  const TemporaryFolder folder;
  const DecimalComma comma;
  colCTCSS tones;
  tones.ReadInDataFromTextFile(
      folder.Write("C", "Remark\tCtcssValue\tCTCSSID\r\nx\t67.0\t1\r\n\r\n\t\"69.3\"\t2\r\n"));
  EXPECT_EQ(tones.Decode("1"), "67,0");
  EXPECT_EQ(tones.Decode("127"), "None");
  EXPECT_EQ(tones.Encode("69,3"), 2);
  EXPECT_EQ(ErrorNumberOf([&] { tones.Encode("None"); }), 5);
  colDCS codes;
  codes.ReadInDataFromTextFile(folder.Write("D", "DCSID\tDCSVALUE\n1\t023\n2\t4.5\n"));
  EXPECT_EQ(codes.Decode("2"), "4.5") << "codes have no decimal symbol";
}

TEST(SubaudibleCodes, DamagedFilesAreRefusedWithFileAndLine) {
  const std::tuple<std::string, int, const char*> cases[] = {{"1\t67.0\nx\t69.3\n", 13, "3"},
                                                             {"1\t67.0\n\t69.3\n", 457, "3"},
                                                             {"1\t67.0\n2\t\n", 457, "3"},
                                                             {"1\t67.0\t3\n", 9, "2"},
                                                             {"1\t67.0\n1\t69.3\n", 457, "3"}};
  const TemporaryFolder folder;
  for (const auto& [rows, number, line] : cases) {
    const std::string path = folder.Write("C.dat", "CTCSSID\tCTCSSVALUE\n" + rows);
    try {
      colCTCSS().ReadInDataFromTextFile(path);
      ADD_FAILURE() << rows;
    } catch (const Error& error) {
      EXPECT_EQ(error.Number(), number) << rows;
      EXPECT_THAT(error.Reason().description,
                  testing::AllOf(testing::HasSubstr(path), testing::HasSubstr(line)));
    }
  }
  EXPECT_EQ(ErrorNumberOf([&] { colCTCSS().ReadInDataFromTextFile(folder.PathOf("none")); }), 53);
}

/// A personality with nothing but a deviation and the level behind it.
std::shared_ptr<Provider> DeviationProvider() {
  SchemaTable table;
  table.number = 44;
  table.minimum = table.maximum = 2;
  table.fieldCount = 2;
  std::vector<SchemaField> fields(2);
  fields[0].id = "44.SubTxDeviationOne";
  fields[1].id = "44.SubCalibrationOutputLevelOne";
  for (SchemaField& field : fields) field.table = 44;
  return std::make_shared<Provider>(
      std::make_shared<Schema>(VersionName{"KD4410", 94}, std::vector{table}, std::move(fields)));
}

TEST(TxDeviation, IsPerCentOfTheFullOutputLevelHalvesToTheEvenNeighbour) {
  const auto provider = DeviationProvider();
  const auto read = [&](const char* name) { return CLng(provider->Get(name, 2)); };
  for (const auto& [level, percent] :
       {std::pair{18260.0, 100}, {9130.0, 50}, {0.0, 0}, {456.5, 2}, {639.1, 4}, {91.0, 0}}) {
    provider->Set("44.SubCalibrationOutputLevelOne", 2, level);
    modSubaudible::GetTxDeviation(ProviderRef(provider), "44.subtxdeviationONE", 2);
    EXPECT_EQ(read("44.SubTxDeviationOne"), percent) << level;
  }
  for (const auto& [percent, level] :
       {std::pair{"100", 18260}, {"33", 6026}, {"2.5", 456}, {"7.5", 1370}, {"0", 0}}) {
    provider->Set("44.SubTxDeviationOne", 2, percent);
    modSubaudible::SetOutputLevel(ProviderRef(provider), "44.SubTxDeviationOne", 2);
    EXPECT_EQ(read("44.SubCalibrationOutputLevelOne"), level) << percent;
  }
}

class ToneTables : public ChannelFixture {};

TEST_F(ToneTables, AreEmptiedBeforeTheChannelsFillThemAnew) {
  StartTrail();
  EXPECT_TRUE(ToUI("50.CTCSSfreq"));
  EXPECT_TRUE(FromUI("50.CTCSSfreq"));
  EXPECT_EQ(Trail(), "clear:61 clear:50");
}
}  // namespace
