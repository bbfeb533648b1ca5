#include "workbench/conform/Choices.h"

#include <limits>
#include <memory>
#include <string_view>

#include "platform/CaseText.h"
#include "platform/XArrayDBObject.h"

namespace {
using namespace std::string_view_literals;

// clang-format off
constexpr std::string_view kOddTexts[] = {
    "", " ", "None", "NoSuchControl", "5.", ".ChannelTxFreq", "5.NoSuchField", "999.Any", "-1", "0", "1", "2", "21",
    "1119", "2147483648", "-2147483649", "1E400", "&HFFFFFFFF", "0,5", "1.5", "True", "2024-02-30", "a|b", "%0:S",
    "GGGG", "T,T,T", "\xFF\xFE", "a\0b"sv, "12345", "0123456789ABCDEF", "R1,R2", "\r\n", "Channels6000",
    "ControlStatus6000",
};
// clang-format on
constexpr std::size_t kLongText = 5000;   // characters
constexpr std::size_t kNumbers = 65'536;  // two bytes of an input
}  // namespace

std::size_t Choices::Below(std::size_t count) {
  if (isEndless_) return static_cast<std::size_t>(generator_() % count);
  std::size_t number = 0;
  for (std::size_t reach = 1; reach < count && !bytes_.empty(); reach *= 256) {
    number = number * 256 + bytes_.front();
    bytes_ = bytes_.subspan(1);
  }
  return number % count;
}

std::string Choices::OddText() {
  if (OneIn(4)) return std::to_string(static_cast<int>(Below(kNumbers)) - 100);
  const std::size_t which = Below(std::size(kOddTexts) + 1);
  return which < std::size(kOddTexts) ? std::string(kOddTexts[which]) : std::string(kLongText, '7');
}

Variant Choices::OddValue() {
  switch (Below(9)) {
    case 0:
      return {};
    case 1:
      return OneIn(2);
    case 2:
      return static_cast<std::int32_t>(Below(kNumbers));
    case 3:
      return std::numeric_limits<std::int32_t>::min();
    case 4:
      return static_cast<double>(Below(kNumbers)) * 1e303;
    case 5:
      return ArrayObject(std::make_shared<XArrayDBObject>());
    case 6:
      return Date{45'351.5};
    default:
      return OddText();
  }
}

RecordNr Choices::OddRecord(RecordNr count) {
  const std::size_t which = Below(std::size(kOddRecords) + 1);
  return which < std::size(kOddRecords) ? kOddRecords[which] : count + 1;
}

std::string Choices::InAnyCase(std::string name) { return OneIn(3) ? UpperCase(name) : name; }
