#include <gmock/gmock.h>
#include <gtest/gtest.h>

#include "channels/colSubaudible.h"
#include "platform/Locale.h"
#include "tests/support/ErrorNumberOf.h"
#include "tests/support/FakeHost.h"
#include "tests/support/FreshLibrary.h"
#include "ui/colUserFields.h"

namespace {
using testing::AllOf;
using testing::ElementsAre;
using testing::HasSubstr;
using testing::StartsWith;

/// A line as a scrambled file holds it: each byte raised by its place, in hexadecimal, the last digit in
/// front.
std::string Scrambled(std::string_view line) {
  constexpr std::string_view kDigits = "0123456789ABCDEF";
  std::string digits;
  for (std::size_t i = 0; i < line.size(); ++i) {
    const auto byte = (static_cast<unsigned char>(line[i]) + i + 1) % 256;
    digits += {kDigits[byte / 16], kDigits[byte % 16]};
  }
  return digits.empty() ? digits : digits.substr(digits.size() - 1) + digits.substr(0, digits.size() - 1);
}

constexpr std::string_view kHeader =
    "UIID\tLABEL\tHELPID\tUNIT\tUIWIDTHDEFAULT\tFACTACCESSLEVEL\tFACTBUTCUSTVIS\tCUSTACCESSLEVEL\t"
    "SPCLRESTRICTIONS\tATGRIDID\tDECIMALSYMBOL\tNAVLABEL";

class Metadata : public testing::Test {
 protected:
  Metadata() { SetDecimalSymbol('.'); }
  ~Metadata() override { SetDecimalSymbol('\0'); }

  bool Read(std::string_view content) {
    fields.RemoveAll();
    return fields.ReadInDataFromTextFile(folder.Write("fields.dat", content));
  }
  /// Number and description of the error that the content raises.
  std::string Refusal(std::string_view content) {
    try {
      Read(content);
    } catch (const Error& error) {
      return std::to_string(error.Number()) + " " + error.Reason().description;
    }
    return "read";
  }

  const TemporaryFolder folder;
  colUserFields fields;
};

TEST_F(Metadata, ReadsEveryColumnOfARow) {
  EXPECT_TRUE(Read(std::string(kHeader) +
                   "\nTxFreq_k6k\t\"Tx, \"\"MHz\"\t12\tMHz\t2.5\t20\t-1\t30\t\tChannels6000\tTrue\tTx\n"));
  ASSERT_EQ(fields.Count(), 1);
  const clsUserField& field = fields.Item("TXFREQ_K6K");
  EXPECT_EQ(field.UIID, "TxFreq_k6k");
  EXPECT_EQ(field.Label, "Tx, \"\"MHz");
  EXPECT_EQ(field.HelpID, 12);
  EXPECT_EQ(field.Units, "MHz");
  EXPECT_EQ(field.UIWidth, 2);
  EXPECT_EQ(field.UIWidthDefault, 0);
  EXPECT_EQ(field.FactAccessLevel, 20);
  EXPECT_TRUE(field.FactButCustVis);
  EXPECT_EQ(field.CustAccessLevel, 30);
  EXPECT_EQ(field.SpclRestrictions, "");
  EXPECT_EQ(field.ATGridID, "Channels6000");
  EXPECT_TRUE(field.DecimalSymbol);
  EXPECT_EQ(field.NavLabel, "Tx");
}

TEST_F(Metadata, AnEmptyPieceAndAShortRowKeepTheDefaults) {
  EXPECT_TRUE(Read(std::string(kHeader) + "\nA\t\t\t\t\t\t\t\t\t\t\t\nB"));
  for (const char* uiid : {"A", "B"}) {
    const clsUserField& field = fields.Item(uiid);
    EXPECT_EQ(field.Label, "");
    EXPECT_EQ(field.Units, "units");
    EXPECT_EQ(field.UIWidth, 0);
    EXPECT_EQ(field.FactAccessLevel, 0);
    EXPECT_FALSE(field.FactButCustVis);
    EXPECT_EQ(field.CustAccessLevel, 40);
    EXPECT_FALSE(field.DecimalSymbol);
  }
}

TEST_F(Metadata, OfTheTwoColumnsOfTheCustomerLevelTheLaterWins) {
  EXPECT_TRUE(Read("UIID\tCUSTACCESSLEVEL\tSPCLRESTRICTIONS\nA\t10\t20\nB\t10\t\nC\t\t20\n"));
  EXPECT_EQ(fields.Item("A").CustAccessLevel, 20);
  EXPECT_EQ(fields.Item("B").CustAccessLevel, 10);
  EXPECT_EQ(fields.Item("C").CustAccessLevel, 20);
  EXPECT_TRUE(Read("UIID\tSPCLRESTRICTIONS\tCUSTACCESSLEVEL\nA\t10\t20\n"));
  EXPECT_EQ(fields.Item("A").CustAccessLevel, 20);
  EXPECT_EQ(fields.Item("A").SpclRestrictions, "");
}

TEST_F(Metadata, LineEndsQuotesColumnOrderAndUnknownColumns) {
  EXPECT_TRUE(Read("label\t\"uiid\"\tOTHER\tUnit\r\n\"L\"\t\"A\"\tx\t\"\r\n\r\n\n\"cut off\tB\ty\r\n"));
  ASSERT_EQ(fields.Count(), 2);
  EXPECT_EQ(fields.Item("a").Label, "L");
  EXPECT_EQ(fields.Item("A").Units, "units");  // a lone quote is an empty piece
  EXPECT_EQ(fields.Item("B").Label, "cut of");
  EXPECT_TRUE(Read("UIID\nA\t\t\n"));  // empty pieces beyond the header
  EXPECT_TRUE(Read("UIID\n"));
  EXPECT_EQ(fields.Count(), 0);
}

TEST_F(Metadata, Flags) {
  const std::pair<const char*, bool> rows[] = {{"True", true}, {"FALSE", false}, {"0", false},
                                               {"-1", true},   {"2", true},      {"0.4", true}};
  for (const auto& [text, flag] : rows) {
    EXPECT_TRUE(Read(std::string("UIID\tDECIMALSYMBOL\nA\t") + text));
    EXPECT_EQ(fields.Item("A").DecimalSymbol, flag) << text;
  }
  EXPECT_TRUE(Read("UIID\tFACTBUTCUSTVIS\nA\t0.4\nB\t2\n"));
  EXPECT_FALSE(fields.Item("A").FactButCustVis);  // a whole number first
  EXPECT_TRUE(fields.Item("B").FactButCustVis);
}

TEST_F(Metadata, BadContentNamesFileLineAndColumn) {
  const struct {
    std::string content, number, place, reason;
  } rows[] = {{"UIID\tUIWIDTHDEFAULT\nA\t1\nB\twide\n", "13", "fields.dat:3: UIWIDTHDEFAULT", "wide"},
              {"UIID\tHELPID\nA\t1E999\n", "6", "fields.dat:2: HELPID", "1E999"},
              {"UIID\tHELPID\nA\t3000000000\n", "6", "fields.dat:2: HELPID", "3000000000"},
              {"UIID\tFACTACCESSLEVEL\nA\t40000\n", "6", "fields.dat:2: FACTACCESSLEVEL", "40000"},
              {"UIID\tCUSTACCESSLEVEL\n\nA\t40000\n", "6", "fields.dat:3: CUSTACCESSLEVEL", "40000"},
              {"UIID\tFACTBUTCUSTVIS\nA\tTrue\n", "13", "fields.dat:2: FACTBUTCUSTVIS", "True"},
              {"UIID\tDECIMALSYMBOL\nA\tyes\n", "13", "fields.dat:2: DECIMALSYMBOL", "yes"},
              {"UIID\nA\r\nB\r\na\r\n", "457", "fields.dat:4", "a"},
              {"UIID\tLABEL\nA\tL\tmore\n", "9", "fields.dat:2", ""}};
  for (const auto& row : rows) {
    EXPECT_THAT(Refusal(row.content),
                AllOf(StartsWith(row.number + " "), HasSubstr(row.place), HasSubstr(row.reason)))
        << row.content;
  }
  EXPECT_THAT(Refusal(""), HasSubstr("fields.dat"));
  EXPECT_THAT(Refusal("PCA Set\n"), HasSubstr("fields.dat"));
  EXPECT_EQ(ErrorNumberOf([&] { fields.ReadInDataFromTextFile(folder.PathOf("missing.dat")); }), 53);
  EXPECT_EQ(ErrorNumberOf([&] { fields.ReadInDataFromTextFile(folder.Path()); }), 53);  // a folder
}

TEST_F(Metadata, AScrambledFileReadsAsItsPlainTwin) {
  const std::string label(300, 'x');
  EXPECT_TRUE(Read("PCA Set\r\n" + Scrambled("UIID\tLABEL") + "\r\n" + Scrambled("A\t\"" + label + "\"") +
                   "\r\n\r\n" + Scrambled("B\tW\xC3\xA4rme") + "\n"));
  ASSERT_EQ(fields.Count(), 2);
  EXPECT_EQ(fields.Item("A").Label, label);
  EXPECT_EQ(fields.Item("B").Label, "W\xC3\xA4rme");
  EXPECT_TRUE(Read("PCA set\nA\n"));  // not the mark: a header of one unknown column
  EXPECT_EQ(fields.Count(), 1);
}

TEST_F(Metadata, TonesTakeTheUsersSymbolAndCodesStandAsTheyAre) {
  SetDecimalSymbol(',');
  colCTCSS tones;
  EXPECT_TRUE(tones.ReadInDataFromTextFile(
      folder.Write("c.dat", "CTCSSVALUE\tnote\tCTCSSID\r\n67.0\tx\t1\r\n\"71.9\"\t\t2\r\n")));
  EXPECT_EQ(tones.Count(), 2);
  EXPECT_EQ(tones.Decode("1"), "67,0");
  EXPECT_EQ(tones.Encode("71,9"), 2);
  EXPECT_EQ(tones.Decode("127"), "None");
  for (const char* unknown : {"None", "67.0", ""})
    EXPECT_EQ(ErrorNumberOf([&] { tones.Encode(unknown); }), 5) << unknown;
  EXPECT_EQ(ErrorNumberOf([&] { tones.Decode("3"); }), 5);
  EXPECT_EQ(std::vector(tones.NewEnum().begin(), tones.NewEnum().end()),
            (std::vector<std::string>{"67,0", "71,9"}));

  colDCS codes;
  EXPECT_TRUE(codes.ReadInDataFromTextFile(folder.Write("d.dat", "DCSID\tDCSVALUE\n1\t023\n2\tx.y\n")));
  EXPECT_EQ(codes.Decode("1"), "023");
  EXPECT_EQ(codes.Decode("2"), "x.y");
  EXPECT_EQ(codes.Encode("X.Y"), 2);
}

TEST_F(Metadata, AnIdOrToneThatComesTwiceIsRefused) {
  for (const char* rows :
       {"1\t67.0\n1\t71.9\n", "1\t67.0\n2\t67.0\n", "1\t67.0\n\t71.9\n", "1\t67.0\n2\t\n"}) {
    colCTCSS tones;
    const std::string path = folder.Write("c.dat", std::string("CTCSSID\tCTCSSVALUE\n") + rows);
    EXPECT_EQ(ErrorNumberOf([&] { tones.ReadInDataFromTextFile(path); }), 457) << rows;
  }
}

/// The tables of the process, as the plug-in serves them.
class MetadataOfTheProcess : public testing::Test {
 protected:
  MetadataOfTheProcess() {
    services.folder = folder.Path();
    library.SetServices(services.Handle());
    userInterface = library.CreateUserInterface();
    folder.Write("KD4410_UI_U.dat", "UIID\tLABEL\tCUSTACCESSLEVEL\nTxFreq_k6k\tTx\t10\n");
    folder.Write("KD4410_UI_D.dat", "DCSID\tDCSVALUE\n1\t023\n");
    folder.Write("KD4410_UI_C.dat", "CTCSSID\tCTCSSVALUE\n1\t67.0\n");
  }
  std::int32_t Load(Boolean& done) {
    return NumberOf(userInterface->InitialiseUserInterface(nullptr, Variant(), done));
  }

  FakeServices services;
  const TemporaryFolder folder;
  const FreshLibrary library;
  std::shared_ptr<ItierUserInterface> userInterface;
};

TEST_F(MetadataOfTheProcess, IsReadOnceAndAnUnknownFieldIsANormalAnswer) {
  Boolean done = kFalse, found = kTrue;
  std::string label = "before";
  std::int16_t level = 7;
  EXPECT_TRUE(userInterface->GetLabelByUIID("TxFreq_k6k", label, found).Ok());
  EXPECT_EQ(found, kFalse);
  EXPECT_EQ(Load(done), 0);
  EXPECT_EQ(done, kTrue);
  EXPECT_TRUE(userInterface->GetLabelByUIID("unknown", label, found).Ok());
  EXPECT_EQ(found, kFalse);
  EXPECT_EQ(label, "before");
  EXPECT_TRUE(userInterface->GetLabelByUIID("TXFREQ_K6K", label, found).Ok());
  EXPECT_EQ(found, kTrue);
  EXPECT_EQ(label, "Tx");
  EXPECT_TRUE(userInterface->GetCustAccessLevelByUIID("txfreq_k6k", level, found).Ok());
  EXPECT_EQ(level, 10);

  std::filesystem::remove_all(folder.Path());
  EXPECT_EQ(Load(done), 0);
  EXPECT_EQ(done, kTrue);
  EXPECT_THAT(services.calls, ElementsAre("ApplicationFolder"));
}

TEST_F(MetadataOfTheProcess, AFailedReadIsTriedAgainFromTheStart) {
  Boolean done = kFalse;
  for (const char* name : {"KD4410_UI_C.dat", "KD4410_UI_D.dat", "KD4410_UI_U.dat"}) {
    const std::string aside = folder.PathOf("aside");
    std::filesystem::rename(folder.PathOf(name), aside);
    EXPECT_EQ(Load(done), 53) << name;
    EXPECT_EQ(done, kFalse);
    std::filesystem::rename(aside, folder.PathOf(name));
  }
  EXPECT_EQ(Load(done), 0);  // no UIID of the reads before is in the way
  EXPECT_EQ(done, kTrue);
}
}  // namespace
