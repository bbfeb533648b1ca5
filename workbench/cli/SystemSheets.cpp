#include "workbench/cli/SystemSheets.h"

#include <algorithm>
#include <ostream>
#include <span>
#include <string>
#include <utility>
#include <vector>

#include "platform/Conversions.h"
#include "workbench/cli/Report.h"
#include "workbench/cli/TextTable.h"
#include "workbench/cli/Verb.h"
#include "workbench/jobs/Session.h"
#include "workbench/jobs/Wording.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"
#include "workbench/store/RecordKeys.h"
#include "workbench/store/TypedNames.h"
#include "workbench/store/ValueText.h"

namespace SystemSheets {
namespace {

/// A field of the system, by its key in JSON and its UIID. It is told where another field of the system holds
/// the code.
struct Fact {
  std::string_view key, uiid;
  std::string_view of = {};
  std::int32_t code = 0;
  std::string_view zero = {};  ///< what 0 means
};

// clang-format off
constexpr Fact kDTMF[] = {
    {"standardTonePeriod",  "DTMFStandardTonePeriod"},
    {"specialTonePeriod",   "DTMFSpecialTonePeriod"},
    {"intertoneGap",        "DTMFIntertoneGap"},
    {"firstToneMultiplier", "DTMFFirstTonePeriodMultiplier"},
    {"leadInDelay",         "DTMFLeadInDelay"},
    {"leadOutDelay",        "DTMFLeadOutDelay"},
    {"aniSequence",         "DTMFANISequence"},
    {"emergencySequence",   "DTMFEmergSequence"},
    {"networkSequence1",    "DTMFNetworkSequence1"},
    {"networkSequence2",    "DTMFNetworkSequence2"},
    {"networkSequence3",    "DTMFNetworkSequence3"},
    {"networkSequence4",    "DTMFNetworkSequence4"},
};
constexpr std::string_view kFormat = "T99TableFormat_k6k", kCustom = "T99Custom_k6k";
constexpr Fact kTwoTone[] = {
    {"format",             kFormat},
    {"customTones",        kCustom},
    {"toneA",              "T99ToneA_k6k", kCustom, 0, "none"},
    {"toneB",              "T99ToneB_k6k", kCustom, 0, "none"},
    {"toneC",              "T99ToneC_k6k", kCustom, 0, "none"},
    {"toneD",              "T99ToneD_k6k", kCustom, 0, "none"},
    {"toneA",              "T99CustomToneA_k6k", kCustom, 1, "none"},
    {"toneB",              "T99CustomToneB_k6k", kCustom, 1, "none"},
    {"toneC",              "T99CustomToneC_k6k", kCustom, 1, "none"},
    {"toneD",              "T99CustomToneD_k6k", kCustom, 1, "none"},
    {"minFirstTone",       "T99MinFirstTonePeriod_k6k"},
    {"maxFirstTone",       "T99MaxFirstTonePeriod_k6k"},
    {"minGap",             "T99MinGapPeriod_k6k"},
    {"maxGap",             "T99MaxGapPeriod_k6k"},
    {"minSecondTone",      "T99MinSecondTonePeriod_k6k"},
    {"maxSecondTone",      "T99MaxSecondTonePeriod_k6k"},
    {"minAllCallTone",     "T99MinAllCallTonePeriod_k6k", kFormat, 0},
    {"maxAllCallTone",     "T99MaxAllCallTonePeriod_k6k", kFormat, 0},
};
constexpr Fact kMDC1200[] = {
    {"radioId",           "MDC1200RadioIDDerived"},
    {"aniSequence",       "MDC1200ANISequence"},
    {"emergencySequence", "MDC1200EmergencySequence"},
};

struct Kind {
  std::string_view name, title;
  std::string_view identity;
  std::int32_t signallingType;
  std::span<const Fact> facts;
};
constexpr std::int32_t kDTMFType = 2;
constexpr Kind kKinds[] = {
    {"dtmf",     "DTMF system",     "DTMFNetworkSigSystemID",    kDTMFType, kDTMF},
    {"two-tone", "Two-tone system", "T99NetworkID_k6k",          3, kTwoTone},
    {"mdc1200",  "MDC1200 system",  "MDC1200SignallingSystemID", 4, kMDC1200},
};
// clang-format on

const Kind* Find(std::string_view what) {
  const auto* kind = std::ranges::find(kKinds, what, &Kind::name);
  return kind == std::end(kKinds) ? nullptr : kind;
}

Json ListOfNumbers(const std::vector<std::string>& texts) {
  Json list = Json::List();
  for (const std::string& text : texts) list.Add(Report::NumberOf(text));
  return list;
}

class Sheet {
 public:
  Sheet(const Session& session, const Kind& kind, RecordNr record, bool all)
      : session_(session), content_(session.Content()), kind_(kind), record_(record), all_(all) {}

  Json AsJson() const {
    Json json = {{"record", record_}, {"system", Report::JsonAt(content_, kind_.identity, record_)}};
    for (const Fact& fact : kind_.facts) {
      if (!IsTold(fact)) continue;
      Report::AddWorded(json, fact.key, Report::JsonAt(content_, fact.uiid, record_),
                        ValueText::At(content_, fact.uiid, record_), Text(fact.uiid));
    }
    json["networks"] = ListOfNumbers(Networks());
    if (!HasPresets()) return json;
    Json presets = Json::List();
    for (const Preset& preset : Presets()) {
      presets.Add(
          {{"row", preset.row}, {"sequence", preset.sequence}, {"channels", ListOfNumbers(preset.channels)}});
    }
    json["presets"] = std::move(presets);
    return json;
  }

  void Print(std::ostream& out) const {
    const std::vector<std::string> networks = Networks();
    out << kind_.title << ' ' << Text(kind_.identity) << ", record " << record_ << ", "
        << (networks.empty() ? "not used" : "used by network " + ListOf(networks)) << '\n';
    TextTable facts({{""}, {""}});
    for (const Fact& fact : kind_.facts) {
      if (IsTold(fact)) facts.Add({session_.LabelOf(fact.uiid), WithUnits(fact)});
    }
    facts.Print(out, 2);
    if (!HasPresets()) return;
    const std::vector<Preset> presets = Presets();
    if (presets.empty()) return;
    out << "  Presets\n";
    TextTable table({{"", TextTable::Align::Right}, {""}, {""}});
    for (const Preset& preset : presets) {
      table.Add({std::to_string(preset.row), preset.sequence,
                 preset.channels.empty() ? "" : "channel " + ListOf(preset.channels)});
    }
    table.Print(out, 4);
  }

 private:
  struct Preset {
    RecordNr row;  // of its system
    std::string sequence;
    std::vector<std::string> channels;  // that call it, by their numbers
  };

  bool HasPresets() const { return kind_.signallingType == kDTMFType; }
  bool IsTold(const Fact& fact) const {
    return fact.of.empty() || IsCode(content_.Get(fact.of, record_), fact.code);
  }
  /// A code that has a word is told by it.
  std::string Text(std::string_view uiid) const { return Wording::TextAt(session_, uiid, record_); }
  std::string WithUnits(const Fact& fact) const {
    const std::string& units = content_.FieldOf(fact.uiid).units;
    const std::string text = Text(fact.uiid);
    if (text == "0" && !fact.zero.empty()) return std::string(fact.zero);
    return text.empty() || units.empty() ? text : text + " " + units;
  }
  Variant Number() const { return content_.Get(kind_.identity, record_); }

  std::vector<std::string> Networks() const {
    std::vector<std::string> networks;
    for (RecordNr network = 1; network <= content_.Count(content_.FieldOf("NetworkID").table); ++network) {
      if (UsesSystem(network)) networks.push_back(CStr(content_.Get("NetworkID", network)));
    }
    return networks;
  }
  bool UsesSystem(RecordNr network) const {
    return IsCode(content_.Get("SignallingType", network), kind_.signallingType) &&
           SameValue(content_.Get("NetworkSignallingID", network), Number());
  }

  std::vector<std::string> CallersOf(const std::string& sequence,
                                     const std::vector<std::string>& networks) const {
    std::vector<std::string> channels;
    const RecordNr count = content_.Count(content_.FieldOf("ChannelID_k6k").table);
    for (RecordNr channel = 1; channel <= count; ++channel) {
      const std::string network = CStr(content_.Get("ChannelNetworkId_k6k", channel));
      const bool isOfSystem = std::ranges::find(networks, network) != networks.end();
      if (isOfSystem && ReadsAs(content_.Get("DTMFPresetCallSequence", channel), sequence)) {
        channels.push_back(CStr(content_.Get("ChannelID_k6k", channel)));
      }
    }
    return channels;
  }
  std::vector<Preset> Presets() const {
    constexpr RecordNr kFirst = 2;  // record 1 belongs to no system
    std::vector<Preset> presets;
    const std::vector<std::string> networks = Networks();
    const SchemaField& owner = content_.FieldOf("65.DTMFChannelPresetSeqSigSysID");
    RecordNr row = 0;
    for (RecordNr record = kFirst; record <= content_.Count(owner.table); ++record) {
      if (!SameValue(content_.Get(owner, record), Number())) continue;
      ++row;
      const std::string sequence = ValueText::At(content_, "65.DTMFChannelPresetSequenceUI", record);
      if (sequence.empty() && !all_) continue;
      presets.push_back(
          {row, sequence, sequence.empty() ? std::vector<std::string>() : CallersOf(sequence, networks)});
    }
    return presets;
  }

  const Session& session_;
  const Provider& content_;
  const Kind& kind_;
  RecordNr record_;
  bool all_;
};

}  // namespace

std::vector<std::string_view> Kinds() {
  std::vector<std::string_view> names;
  for (const Kind& kind : kKinds) names.push_back(kind.name);
  return names;
}

bool IsKind(std::string_view what) { return Find(what) != nullptr; }

void Show(std::string_view what, RecordNr system, bool all, Session& session, Workplace& workplace) {
  const Kind& kind = *Find(what);
  const Provider& content = session.Content();
  const SchemaTable& systems = content.GetSchema().TableOf(content.FieldOf(kind.identity));
  if (system > 0) TypedNames::RequireRecord(content, systems, system);
  std::vector<Sheet> sheets;
  for (RecordNr record = 1; record <= content.Count(systems); ++record) {
    if (system == 0 || system == record) sheets.emplace_back(session, kind, record, all);
  }
  workplace.Tell(
      [&] {
        Json list = Json::List();
        for (const Sheet& sheet : sheets) list.Add(sheet.AsJson());
        return Json({{"systems", std::move(list)}});
      },
      [&](std::ostream& out) {
        for (const Sheet& sheet : sheets) sheet.Print(out);
        if (sheets.empty()) out << "The personality has no " << kind.title << ".\n";
      });
}

}  // namespace SystemSheets
