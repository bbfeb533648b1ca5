#include "channels/modSubaudible.h"

#include "channels/colSubaudible.h"
#include "platform/Error.h"
#include "tests/channels/ChannelFixture.h"
#include "tests/support/Temporary.h"

namespace {
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::IsEmpty;

std::vector<std::string> Texts(const colSubaudible& codes) {
  return {codes.NewEnum().begin(), codes.NewEnum().end()};
}

template <typename Work>
Fault FaultOf(Work work) {
  try {
    work();
  } catch (const Error& error) {
    return error.Reason();
  }
  ADD_FAILURE() << "no error";
  return {};
}

TEST(SubaudibleCodes, MapTextsWithoutCaseAndIdsAsText) {
  colDCS codes;
  codes.Add(7, "D1a");
  codes.Add(3, "023");
  EXPECT_EQ(codes.Encode("d1A"), 7);
  EXPECT_EQ(codes.Decode("3"), "023");
  EXPECT_EQ(codes.Decode("127"), "None");
  EXPECT_EQ(codes.Count(), 2);
  EXPECT_THAT(Texts(codes), ElementsAre("D1a", "023"));
  EXPECT_EQ(FaultOf([&] { codes.Encode("None"); }).number, 5);
  EXPECT_EQ(FaultOf([&] { codes.Decode("4"); }).number, 5);
  EXPECT_EQ(FaultOf([&] { codes.Add(3, "025"); }).number, 457);
  EXPECT_EQ(FaultOf([&] { codes.Add(8, "d1A"); }).number, 457);
}

TEST(SubaudibleCodes, FilesNameTheirColumnsInAnyOrderAndCase) {
  const TemporaryFolder folder;
  const std::string tones =
      folder.Write("C", "Remark\tCtcssValue\tCTCSSID\r\nx\t67.0\t1\r\n\r\n\t\"69.3\"\t2\r\n");
  const std::string codes = folder.Write("D", "DCSID\tDCSVALUE\n1\t023\n2\t4.5\n");
  const DecimalComma comma;
  colCTCSS ctcss;
  EXPECT_TRUE(ctcss.ReadInDataFromTextFile(tones));
  EXPECT_THAT(Texts(ctcss), ElementsAre("67,0", "69,3"));
  EXPECT_EQ(ctcss.Encode("69,3"), 2);
  colDCS dcs;
  EXPECT_TRUE(dcs.ReadInDataFromTextFile(codes));
  EXPECT_EQ(dcs.Decode("1"), "023");
  EXPECT_EQ(dcs.Decode("2"), "4.5") << "codes have no decimal symbol";
}

TEST(SubaudibleCodes, DamagedFilesAreRefusedWithFileAndLine) {
  const struct {
    std::string_view content;
    int number;
    const char* place;
  } cases[] = {
      {"CTCSSID\tCTCSSVALUE\n1\t67.0\nx\t69.3\n", 13, "3"},
      {"CTCSSID\tCTCSSVALUE\n1\t67.0\n\t69.3\n", 457, "3"},
      {"CTCSSID\tCTCSSVALUE\n1\t67.0\n2\t\n", 457, "3"},
      {"CTCSSID\tCTCSSVALUE\n1\t67.0\t3\n", 9, "2"},
      {"CTCSSID\tCTCSSVALUE\n1\t67.0\n1\t69.3\n", 457, "3"},
  };
  const TemporaryFolder folder;
  for (const auto& [content, number, place] : cases) {
    SCOPED_TRACE(content);
    const std::string path = folder.Write("C.dat", content);
    colCTCSS tones;
    const Fault fault = FaultOf([&] { tones.ReadInDataFromTextFile(path); });
    EXPECT_EQ(fault.number, number);
    EXPECT_THAT(fault.description,
                AllOf(HasSubstr("ReadInDataFromTextFile"), HasSubstr(path), HasSubstr(place)));
  }
  colCTCSS tones;
  EXPECT_EQ(FaultOf([&] { tones.ReadInDataFromTextFile(folder.PathOf("none")); }).number, 53);
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
  const auto read = [&](const char* name) { return std::get<std::int32_t>(provider->Get(name, 2)); };
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
  EXPECT_TRUE(provider->Get("44.SubTxDeviationOne", 1).IsEmpty());
}

class ToneTables : public ChannelFixture {};

TEST_F(ToneTables, AreEmptiedBeforeTheChannelsFillThemAnew) {
  provider.Fill("50.CTCSSfreq", {670});
  provider.Fill("61.DCScodeword", {19});
  StartTrail();
  EXPECT_TRUE(ToUI("50.CTCSSfreq"));
  EXPECT_THAT(Trail(), IsEmpty());
  EXPECT_TRUE(FromUI("50.CTCSSfreq"));
  EXPECT_THAT(Trail(), ElementsAre("Iprovider.ClearTable 61", "Iprovider.ClearTable 50"));
}
}  // namespace
