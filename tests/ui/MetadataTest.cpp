#include <gmock/gmock.h>

#include "platform/Locale.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/FakeHost.h"
#include "tests/support/FreshLibrary.h"
#include "ui/colUserFields.h"

namespace {
using testing::AllOf;
using testing::HasSubstr;

/// A line as a scrambled file holds it: each byte raised by its place, in hexadecimal, the last digit in
/// front.
std::string Scrambled(std::string_view line) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string digits;
  for (std::size_t i = 0; i < line.size(); ++i) {
    const auto byte = (static_cast<unsigned char>(line[i]) + i + 1) % 256;
    digits += {kDigits[byte / 16], kDigits[byte % 16]};
  }
  return digits.substr(digits.size() - 1) + digits.substr(0, digits.size() - 1);
}

constexpr std::string_view kHeader =
    "UIID\tLABEL\tHELPID\tUNIT\tUIWIDTHDEFAULT\tFACTACCESSLEVEL\tFACTBUTCUSTVIS\tCUSTACCESSLEVEL\t"
    "SPCLRESTRICTIONS\tATGRIDID\tDECIMALSYMBOL\tNAVLABEL\n";

class Metadata : public testing::Test {
 protected:
  Metadata() { SetDecimalSymbol('.'); }
  ~Metadata() override { SetDecimalSymbol('\0'); }

  void Read(std::string_view content) {
    fields.RemoveAll();
    EXPECT_TRUE(fields.ReadInDataFromTextFile(folder.Write("fields.dat", content)));
  }

  const TemporaryFolder folder;
  colUserFields fields;
};

TEST_F(Metadata, ReadsEveryColumnOfARowAndKeepsTheDefaultOfAnEmptyOrMissingPiece) {
  Read(std::string(kHeader) +
       "TxFreq_k6k\t\"Tx, \"\"MHz\"\t12\tMHz\t2.5\t20\t-1\t30\t\tChannels6000\tTrue\tTx\n"
       "A\t\t\t\t\t\t\t\t\t\t\t\nB");
  ASSERT_EQ(fields.Count(), 3);
  const auto values = [&](std::string_view uiid) {
    const clsUserField& field = fields.Item(uiid);
    return std::tuple(field.Label, field.HelpID, field.Units, field.UIWidth, field.FactAccessLevel,
                      field.FactButCustVis, field.CustAccessLevel, field.ATGridID, field.DecimalSymbol,
                      field.NavLabel);
  };
  EXPECT_EQ(values("TXFREQ_K6K"),
            std::tuple("Tx, \"\"MHz", 12, "MHz", 2, 20, true, 30, "Channels6000", true, "Tx"));
  for (const char* uiid : {"A", "B"})
    EXPECT_EQ(values(uiid), std::tuple("", 0, "units", 0, 0, false, 40, "", false, ""));
}

TEST_F(Metadata, LineEndsQuotesColumnOrderAndUnknownColumns) {
  Read("label\t\"uiid\"\tOTHER\tUnit\r\n\"L\"\t\"A\"\tx\t\"\r\n\r\n\n\"cut off\tB\ty\r\n");
  ASSERT_EQ(fields.Count(), 2);
  EXPECT_EQ(fields.Item("a").Label, "L");
  EXPECT_EQ(fields.Item("A").Units, "units");  // a lone quote is an empty piece
  EXPECT_EQ(fields.Item("B").Label, "cut of");
  Read("UIID\nA\t\t\n");  // empty pieces beyond the header
}

TEST_F(Metadata, FlagsAreWordsOrNumbersAndTheLaterCustomerLevelWins) {
  for (const auto& [text, flag] : {std::pair{"True", true}, {"FALSE", false}, {"0", false}, {"-1", true}}) {
    Read(std::string("UIID\tDECIMALSYMBOL\nA\t") + text);
    EXPECT_EQ(fields.Item("A").DecimalSymbol, flag) << text;
  }
  Read("UIID\tCUSTACCESSLEVEL\tSPCLRESTRICTIONS\tFACTBUTCUSTVIS\nA\t10\t20\t0.4\nB\t10\t\t2\n");
  EXPECT_EQ(fields.Item("A").CustAccessLevel, 20);
  EXPECT_EQ(fields.Item("B").CustAccessLevel, 10);
  EXPECT_FALSE(fields.Item("A").FactButCustVis);  // a whole number first
  EXPECT_TRUE(fields.Item("B").FactButCustVis);
}

TEST_F(Metadata, BadContentNamesFileLineAndColumn) {
  const struct {
    std::string content;
    std::int32_t number;  // 0 for any
    std::string place, reason;
  } rows[] = {{"UIID\tUIWIDTHDEFAULT\nA\t1\nB\twide\n", 13, ":3: UIWIDTHDEFAULT", "wide"},
              {"UIID\tHELPID\nA\t3000000000\n", 6, ":2: HELPID", "3000000000"},
              {"UIID\tCUSTACCESSLEVEL\n\nA\t40000\n", 6, ":3: CUSTACCESSLEVEL", "40000"},
              {"UIID\tFACTBUTCUSTVIS\nA\tTrue\n", 13, ":2: FACTBUTCUSTVIS", "True"},
              {"UIID\tDECIMALSYMBOL\nA\tyes\n", 13, ":2: DECIMALSYMBOL", "yes"},
              {"UIID\nA\r\nB\r\na\r\n", 457, ":4", "a"},
              {"UIID\tLABEL\nA\tL\tmore\n", 9, ":2", ""},
              {"", 0, "", ""},
              {"PCA Set\n", 0, "", ""}};
  for (const auto& [content, number, place, reason] : rows) {
    try {
      Read(content);
      ADD_FAILURE() << content;
    } catch (const Error& error) {
      EXPECT_TRUE(number == 0 || error.Number() == number) << content;
      EXPECT_THAT(error.what(), AllOf(HasSubstr("fields.dat" + place), HasSubstr(reason)));
    }
  }
  for (const std::string& path : {folder.PathOf("missing.dat"), folder.Path()})
    EXPECT_EQ(ErrorNumberOf([&] { fields.ReadInDataFromTextFile(path); }), 53);
}

TEST_F(Metadata, AScrambledFileReadsAsItsPlainTwin) {
  const std::string label(300, 'x');
  Read("PCA Set\r\n" + Scrambled("UIID\tLABEL") + "\r\n" + Scrambled("A\t\"" + label + "\"") + "\r\n\r\n" +
       Scrambled("B\tW\xC3\xA4rme") + "\n");
  ASSERT_EQ(fields.Count(), 2);
  EXPECT_EQ(fields.Item("A").Label, label);
  EXPECT_EQ(fields.Item("B").Label, "W\xC3\xA4rme");
}

TEST(MetadataOfTheProcess, IsReadOnceAndAnUnknownFieldIsANormalAnswer) {
  FakeServices services;
  const TemporaryFolder folder;
  services.folder = folder.Path();
  folder.Write("KD4410_UI_U.dat", "UIID\tLABEL\nTxFreq_k6k\tTx\n");
  folder.Write("KD4410_UI_D.dat", "DCSID\tDCSVALUE\n1\t023\n");
  const FreshLibrary library;
  library.SetServices(services.Handle());
  std::shared_ptr<ItierUserInterface> userInterface;
  EXPECT_TRUE(library.Factory("clsTierUI")->CreateUserInterface(userInterface).Ok());
  const auto load = [&] {
    Boolean done = kFalse;
    const auto number = NumberOf(userInterface->InitialiseUserInterface(nullptr, Variant(), done));
    EXPECT_EQ(done != kFalse, number == 0);
    return number;
  };
  const auto label = [&](std::string_view uiid) {
    Boolean found = kFalse;
    std::string text = "as it was";
    EXPECT_TRUE(userInterface->GetLabelByUIID(uiid, text, found).Ok());
    EXPECT_EQ(found != kFalse, text == "Tx");
    return text;
  };
  EXPECT_EQ(load(), 53);  // the last file is missing
  folder.Write("KD4410_UI_C.dat", "CTCSSID\tCTCSSVALUE\n1\t67.0\n");
  EXPECT_EQ(load(), 0);
  EXPECT_EQ(label("unknown"), "as it was");
  EXPECT_EQ(label("TXFREQ_K6K"), "Tx");
  std::filesystem::remove_all(folder.Path());
  EXPECT_EQ(load(), 0);
}
}  // namespace
