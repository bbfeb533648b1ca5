#include "workbench/jobs/Control.h"

#include <algorithm>
#include <charconv>
#include <cmath>
#include <cstdint>
#include <cstdlib>
#include <limits>
#include <optional>

#include "platform/CaseText.h"
#include "platform/Conversions.h"
#include "platform/DecimalText.h"
#include "platform/Locale.h"
#include "workbench/files/Printable.h"
#include "workbench/files/TabbedFile.h"
#include "workbench/files/Utf8.h"
#include "workbench/jobs/ComboList.h"
#include "workbench/jobs/Forms.h"
#include "workbench/jobs/Session.h"
#include "workbench/jobs/Wording.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"
#include "workbench/store/RecordKeys.h"
#include "workbench/store/TypedNames.h"
#include "workbench/store/ValueLists.h"

namespace {

Entry Refuse(std::string why) { return {std::move(why), {}}; }
Entry HandOn(std::string value) { return {{}, std::move(value)}; }

/// What is typed with the user's decimal symbol in place of a point, where the field has numbers with
/// decimals: a person may use either.
std::string WithUsersSymbol(Session& session, const SchemaField& field, std::string_view uiid,
                            std::string_view typed) {
  std::string text(typed);
  const char symbol = DecimalSymbol();
  const bool hasPoint = std::ranges::count(text, '.') == 1 && text.find(symbol) == std::string::npos;
  if (!hasPoint) return text;
  Boolean shows = kFalse, known = kFalse;
  session.Host().Require(session.Host().UserInterface().GetDecimalSymbolByUIID(uiid, shows, known));
  if (shows != kFalse || field.type == FieldType::Number) text[text.find('.')] = symbol;
  return text;
}

// Texts

/// What no text field takes, whatever else it takes.
std::string TextRefusal(std::string_view typed) {
  constexpr char32_t kHighest = 0xFF;  // of the radio's character set, one byte a character
  const std::string_view foreign = Utf8::FirstAbove(typed, kHighest);
  if (foreign.empty()) return {};
  char code[8];
  const auto end =
      std::to_chars(std::begin(code), std::end(code), std::uint32_t{Utf8::CodeOf(foreign)}, 16).ptr;
  return "the radio has no character " + Printable::Quoted(foreign) + " (U+" +
         UpperCase(std::string_view(code, end)) + ")";
}

/// A sequence of tones takes a word for no tones, too.
bool IsWordForNone(const SchemaField& field, std::string_view typed) {
  constexpr std::int32_t kToneSequence = 521;  // the conversion that reads the words
  return field.transform == kToneSequence && Forms::ViewedBy(field.table) == nullptr &&
         (EqualsIgnoringCase(typed, "None") || EqualsIgnoringCase(typed, "Undefined"));
}

/// In capitals where the field knows no other letters.
Entry TextEntered(const SchemaField& field, std::string_view typed) {
  if (IsWordForNone(field, typed)) return HandOn("");
  const bool hasAlphabet = !field.validation.empty();
  std::string text = hasAlphabet ? UpperCase(typed) : std::string(typed);
  if (hasAlphabet && text.find_first_not_of(field.validation) != std::string::npos) {
    return Refuse("the field takes the characters " + field.validation);
  }
  if (field.width > 0 && std::cmp_greater(CharacterCount(text), field.width)) {
    return Refuse("the field takes at most " + std::to_string(field.width) + " characters");
  }
  return HandOn(std::move(text));
}

// Numbers

/// Digits with a sign before and blanks around them.
std::optional<std::int32_t> WholeNumber(std::string_view typed) {
  typed = Trim(typed);
  const bool hasPlus = typed.starts_with('+');
  if (hasPlus) typed.remove_prefix(1);
  return hasPlus && typed.starts_with('-') ? std::nullopt : ParseInteger(typed);
}

std::string RangeOf(const Limits& limits) {
  return " from " + CStr(limits.lowest) + " to " + CStr(limits.highest);
}

Entry IntegerEntered(const SchemaField& field, std::string_view typed) {
  using Range = std::numeric_limits<std::int32_t>;
  Limits limits = LimitsOf(field);
  if (limits.lowest >= limits.highest) limits = {Range::min(), Range::max()};
  const auto number = WholeNumber(typed);
  if (number && limits.Hold(*number)) return HandOn(std::to_string(*number));
  return Refuse("the field takes whole numbers" + RangeOf(limits));
}

/// Of a plain number: how many decimals it has, the zeros at its end left out.
std::size_t DecimalsOf(std::string_view number) {
  const std::size_t symbol = number.find_first_not_of("+-0123456789");
  const std::size_t last = number.find_last_not_of('0');
  return symbol == std::string_view::npos ? 0 : last - symbol;
}

Entry NumberEntered(const SchemaField& field, std::string_view typed) {
  typed = Trim(typed);
  const Limits limits = LimitsOf(field);
  const bool isLimited = limits.lowest < limits.highest;
  const double number = IsNumericText(typed) ? *ParseNumber(typed) : HUGE_VAL;  // also for too many digits
  const bool isFineEnough = field.width == 0 || std::cmp_less_equal(DecimalsOf(typed), field.width);
  if (std::isfinite(number) && limits.Hold(number) && isFineEnough) return HandOn(std::string(typed));
  std::string why = "the field takes plain numbers" + (isLimited ? RangeOf(limits) : "");
  if (!isFineEnough) why += ", with decimals: " + std::to_string(field.width) + " at most";
  return Refuse(std::move(why));
}

/// What is no word of it.
Entry FlagEntered(std::string_view typed) {
  const std::optional<std::int32_t> number = WholeNumber(typed);
  if (number && std::abs(*number) <= 1) return HandOn(*number == 0 ? "false" : "true");
  return Refuse("the field takes true or false");
}

// Identities

/// Where another record holds the number that is typed; empty for one that is free.
std::string InUseRefusal(const Provider& content, const SchemaField& field, RecordNr record,
                         const std::string& number) {
  for (const SchemaField* one : NumberSetOf(content.GetSchema(), field)) {
    for (RecordNr other = 1; other <= content.Count(one->table); ++other) {
      const bool isItself = one == &field && other == record;
      if (isItself || !SameValue(content.Get(*one, other), number)) continue;
      const SchemaTable& table = content.GetSchema().TableOf(*one);
      return "number " + number + " is in use by record " + std::to_string(other) +
             (one == &field ? "" : " of table " + std::to_string(table.number) + " (" + table.title + ")");
    }
  }
  return {};
}

// Lists

/// What the field stores for an entry: its text or, in a field of numbers, its code, the number that it is,
/// or its row.
std::string StoredFor(const SchemaField& field, const ComboList& list, const ComboItem& item) {
  if (field.type == FieldType::Text) return item.text;
  if (item.code) return std::to_string(*item.code);
  return IsNumericText(item.text) ? item.text : std::to_string(&item - list.items.data());
}

/// Digits that are tones or codes are no number: "012" is not "12".
bool IsSameNumber(const SchemaField& field, const std::string& stored, std::string_view typed) {
  if (field.type == FieldType::Integer && !WholeNumber(typed)) return false;
  return field.validation.empty() && IsNumericText(stored) && IsNumericText(typed) &&
         SameValue(stored, typed);
}

/// The entry that is meant: by its spelling, by its letters where one alone has them, or by its number.
const ComboItem* EntryMeant(const SchemaField& field, const ComboList& list, std::string_view typed) {
  const auto find = [&](auto isMeant) {
    const auto found = std::ranges::find_if(list.items, isMeant);
    return found == list.items.end() ? nullptr : &*found;
  };
  const auto hasLetters = [&](const ComboItem& item) { return EqualsIgnoringCase(item.text, typed); };
  if (const ComboItem* spelled = find([&](const ComboItem& item) { return item.text == typed; }))
    return spelled;
  if (std::ranges::count_if(list.items, hasLetters) == 1) return find(hasLetters);
  return find(
      [&](const ComboItem& item) { return IsSameNumber(field, StoredFor(field, list, item), typed); });
}

/// What of the list is near or, where nothing is, what it has when that is short.
std::string Hint(const ComboList& list, std::string_view typed) {
  constexpr std::size_t kLongest = 100;
  if (list.items.empty()) return ", which is empty";
  std::vector<std::string> texts;
  for (const ComboItem& item : list.items) texts.push_back(item.text);
  const bool areNumbers = std::ranges::all_of(texts, IsNumericText);
  std::string near = areNumbers ? "" : TypedNames::Suggestion(typed, texts);
  if (!near.empty()) return near;
  const std::string all = ListOf(texts);
  return all.size() > kLongest ? "" : "; it has " + all;
}

Entry Chosen(const Session& session, const SchemaField& field, const ComboList& list, std::string_view uiid,
             RecordNr record, std::string_view typed) {
  const ComboItem* item = EntryMeant(field, list, typed);
  if (item != nullptr) return HandOn(StoredFor(field, list, *item));
  return Refuse(Printable::Quoted(typed) + " is not in the list of " + session.LabelOf(uiid) +
                Hint(list, typed) + " (kd4410 combo FILE " + std::string(uiid) + " " +
                std::to_string(record) + " lists them)");
}

/// What the field stores for a word; no value for any other text.
std::optional<std::string> CodeOf(const SchemaField& field, const CodeWords& words, std::string_view typed) {
  const std::optional<std::int32_t> code = words.CodeOf(Trim(typed));
  if (!code) return {};
  if (field.type == FieldType::Flag) return *code == 0 ? "false" : "true";
  return std::to_string(*code);
}

/// What the refusal of a code adds: the words that may be typed in its place.
Entry WithWords(Entry entry, const CodeWords& words) {
  if (entry.refusal.empty() || words.Entries().empty()) return entry;
  if (words.IsTick()) return Refuse("the field takes yes or no, on or off, 1 or 0");
  std::vector<std::string> texts;
  for (const auto& [code, word] : words.Entries()) texts.push_back(word);
  entry.refusal += ", or " + ListOf(texts);
  return entry;
}

Entry Typed(const SchemaField& field, std::string_view typed) {
  switch (field.type) {
    case FieldType::Integer:
      return IntegerEntered(field, typed);
    case FieldType::Number:
      return NumberEntered(field, typed);
    case FieldType::Text:
      return TextEntered(field, typed);
    case FieldType::Flag:
      return FlagEntered(typed);
    case FieldType::Array:
      break;
  }
  return Refuse("the field can not be typed");
}

// Digital lines

constexpr std::string_view kPin = "DigitalIOPin", kAction = "DigitalIOAction";

bool HasDirection(const Provider& content, RecordNr row) {
  return CStr(content.Get("DigitalIODirection", row)) != "None";
}

/// What a pin without direction does is nothing, and may be typed.
bool NamesAnAction(std::string_view typed) { return !EqualsIgnoringCase(typed, "No Action"); }

std::string_view TextKindOf(const SchemaField& field) {
  if (field.IsHexadecimal()) return "hexadecimal";
  return field.validation.empty() ? "text" : "tones";
}

}  // namespace

std::string_view ControlKindOf(const SchemaField& field, const CodeWords& words, bool hasList) {
  constexpr std::int32_t kFrequencies[] = {501, 502};  // the conversions of hertz to megahertz
  if (field.isIdentity) return "identity";
  if (hasList) return "list";
  if (words.IsTick() || field.type == FieldType::Flag) return "tick";
  if (!words.Entries().empty()) return "choice";
  if (std::ranges::find(kFrequencies, field.transform) != std::end(kFrequencies)) return "frequency";
  if (field.type == FieldType::Integer) return "whole number";
  return field.type == FieldType::Number ? "number" : TextKindOf(field);
}

Entry EnteredIn(Session& session, const SchemaField& field, std::string_view uiid, RecordNr record,
                std::string_view given) {
  const std::string typed = WithUsersSymbol(session, field, uiid, given);
  if (!Utf8::IsValid(typed)) return Refuse("the text is not valid UTF-8");
  if (uiid == kPin) return Refuse("the pins of the radio are fixed: the field can not be typed");
  if (uiid == kAction && NamesAnAction(typed) && !HasDirection(session.Content(), record)) {
    return Refuse("the pin has no direction: set DigitalIODirection first");
  }
  if (field.isIdentity) {
    Entry entry = Typed(field, typed);
    if (entry.refusal.empty()) entry.refusal = InUseRefusal(session.Content(), field, record, entry.value);
    return entry;
  }
  if (field.type == FieldType::Text) {
    if (std::string refusal = TextRefusal(typed); !refusal.empty()) return Refuse(std::move(refusal));
  }
  const CodeWords words = Wording::WordsOf(session.Host(), field);
  if (auto code = CodeOf(field, words, typed)) return HandOn(std::move(*code));
  const std::optional<ComboList> list = ListOffered(session.Host(), session.Content(), uiid, record);
  return list ? Chosen(session, field, *list, uiid, record, typed) : WithWords(Typed(field, typed), words);
}
