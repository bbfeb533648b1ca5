#include "selcall/ToneSets.h"

#include <algorithm>
#include <array>
#include <iterator>

namespace ToneSets {
namespace {
// Given by the maintainers' reference, like all that ARCHITECTURE lists as given.
// clang-format off
constexpr Tone kTonesA[] = {
    {930, 880, 969}, {991, 971, 1018}, {1055, 1037, 1074}, {1124, 1106, 1142}, {1197, 1178, 1214},
    {1275, 1255, 1295}, {1358, 1336, 1378}, {1446, 1422, 1470}, {1540, 1515, 1563}, {1640, 1612, 1664},
    {1747, 1717, 1773}, {1860, 1823, 1891}, {1981, 1945, 2010}, {2110, 2072, 2141}, {2247, 2207, 2280},
    {2400, 2300, 2500},
};
constexpr Tone kTonesB[] = {
    {459, 431, 563}, {600, 581, 616}, {741, 720, 754}, {882, 858, 899}, {1023, 995, 1038}, {1091, 1062, 1106},
    {1164, 1134, 1184}, {1305, 1273, 1324}, {1446, 1416, 1471}, {1587, 1556, 1612}, {1728, 1694, 1756},
    {1869, 1829, 1899}, {2010, 1966, 2039}, {2151, 2104, 2184}, {2292, 2245, 2338}, {2433, 2383, 2483},
};
constexpr Tone kTonesC[] = {
    {680, 650, 750}, {810, 782, 824}, {885, 868, 912}, {970, 951, 1000}, {1060, 1042, 1082},
    {1160, 1140, 1183}, {1270, 1249, 1294}, {1400, 1376, 1425}, {1530, 1502, 1557}, {1670, 1638, 1697},
    {1830, 1790, 1862}, {2000, 1950, 2045}, {2200, 2140, 2260}, {2400, 2327, 2469}, {2600, 2500, 2672},
    {2800, 2680, 2868},
};
constexpr Tone kTonesD[] = {
    {680, 659, 694}, {740, 719, 753}, {825, 803, 839}, {885, 868, 911}, {970, 952, 993}, {1060, 1040, 1084},
    {1160, 1138, 1184}, {1270, 1248, 1294}, {1400, 1373, 1428}, {1530, 1500, 1555}, {1670, 1638, 1696},
    {1830, 1795, 1865}, {2000, 1963, 2040}, {2200, 2160, 2248}, {2400, 2341, 2456}, {2600, 2475, 2670},
};
constexpr Tone kTonesE[] = {
    {571, 540, 607}, {631, 608, 670}, {697, 671, 735}, {770, 745, 805}, {852, 829, 885}, {941, 919, 972},
    {1040, 1019, 1069}, {1209, 1188, 1236}, {1336, 1314, 1363}, {1477, 1452, 1505}, {1633, 1603, 1662},
    {1805, 1768, 1838}, {1995, 1948, 2034}, {2205, 2143, 2252}, {2437, 2356, 2496}, {2694, 2586, 2770},
};
/// There is no tone between 1477 and 1728 Hz, on purpose. The limits differ from those that a frequency has in a
/// standard set.
constexpr Tone kCustomTones[] = {
    {571, 540, 589, 8909}, {600, 570, 618, 9362}, {631, 603, 649, 9846}, {680, 654, 698, 10611},
    {697, 671, 715, 10875}, {740, 716, 758, 11547}, {741, 717, 759, 11562}, {770, 747, 788, 12014},
    {810, 788, 828, 12639}, {825, 803, 843, 12873}, {852, 831, 870, 13294}, {882, 862, 901, 13763},
    {885, 865, 904, 13809}, {930, 911, 949, 14512}, {941, 922, 960, 14683}, {970, 951, 989, 15136},
    {991, 973, 1010, 15463}, {1023, 1005, 1043, 15963}, {1040, 1022, 1060, 16227}, {1055, 1037, 1075, 16462},
    {1060, 1042, 1080, 16540}, {1091, 1074, 1111, 17024}, {1124, 1107, 1145, 17539},
    {1160, 1143, 1181, 18100}, {1164, 1147, 1185, 18163}, {1197, 1180, 1219, 18678},
    {1209, 1192, 1231, 18865}, {1270, 1252, 1293, 19817}, {1275, 1257, 1298, 19895},
    {1305, 1287, 1328, 20363}, {1336, 1318, 1360, 20846}, {1358, 1339, 1382, 21190},
    {1400, 1381, 1425, 21845}, {1446, 1426, 1472, 22563}, {1477, 1456, 1504, 23046},
    {1728, 1698, 1761, 26963}, {1747, 1716, 1780, 27260}, {1805, 1772, 1840, 28164},
    {1830, 1795, 1866, 28555}, {1860, 1824, 1897, 29023}, {1869, 1832, 1906, 29164},
    {1981, 1937, 2022, 30911}, {1995, 1950, 2036, 31129}, {2000, 1955, 2041, 31208},
    {2010, 1965, 2052, 31364}, {2110, 2057, 2155, 32924}, {2151, 2095, 2198, 33564},
    {2200, 2140, 2249, 34328}, {2205, 2145, 2254, 34406}, {2247, 2183, 2298, 35062},
    {2292, 2224, 2345, 35763}, {2400, 2322, 2457, 37449}, {2433, 2352, 2492, 37964},
    {2437, 2356, 2496, 38026}, {2600, 2501, 2667, 40570},
};

constexpr std::uint8_t kRemap0[] = {12, 3, 4, 5, 6, 7, 8, 9, 10, 11, 15, 0, 14, 1, 13, 2};
constexpr std::uint8_t kRemap1[] = {1, 2, 3, 4, 6, 7, 8, 9, 10, 11, 13, 15, 12, 14, 0, 5};
constexpr std::uint8_t kRemap2[] = {12, 3, 4, 5, 6, 7, 8, 9, 10, 11, 2, 0, 15, 1, 13, 14};
constexpr std::uint8_t kRemap3[] = {13, 4, 5, 6, 7, 8, 9, 10, 11, 12, 15, 1, 3, 2, 14, 0};
constexpr std::uint8_t kRemap4[] = {14, 5, 6, 7, 8, 9, 10, 11, 12, 13, 3, 2, 1, 0, 4, 15};
constexpr std::uint8_t kRemap5[] = {13, 4, 5, 6, 7, 8, 9, 10, 11, 12, 2, 1, 15, 0, 3, 14};
constexpr std::uint8_t kRemap6[] = {13, 4, 5, 6, 7, 8, 9, 10, 11, 12, 3, 1, 15, 2, 14, 0};
constexpr std::uint8_t kRemap7[] = {10, 1, 2, 3, 4, 5, 6, 7, 8, 9, 12, 0, 13, 14, 11, 15};
constexpr std::uint8_t kRemap8[] = {13, 4, 5, 6, 7, 8, 9, 10, 11, 12, 2, 1, 15, 3, 14, 0};
/// The sixteen default tones, then the rest.
constexpr std::uint8_t kRemap9[] = {
    0, 3, 6, 9, 12, 15, 18, 21, 24, 27, 30, 33, 36, 39, 42, 45, 1, 2, 4, 5, 7, 8, 10, 11,
    13, 14, 16, 17, 19, 20, 22, 23, 25, 26, 28, 29, 31, 32, 34, 35, 37, 38, 40, 41, 43, 44, 46, 47,
    48, 49, 50, 51, 52, 53, 54,
};

constexpr ToneSet kSets[] = {
    {kTonesA, kRemap0, 0, 1694},
    {kTonesB, kRemap1, 1, 1516},
    {kTonesA, kRemap2, 0, 1694},
    {kTonesC, kRemap3, 1, 1750},
    {kTonesD, kRemap4, 1, 1600},
    {kTonesC, kRemap5, 1, 1750},
    {kTonesC, kRemap6, 1, 1750},
    {kTonesE, kRemap7, 1, 1720},
    {kTonesD, kRemap8, 1, 1600},
    {kCustomTones, kRemap9, 1, 1600},
};
// clang-format on

constexpr bool IsPermutation(std::span<const std::uint8_t> remap) {
  std::array<bool, 256> used{};
  return std::ranges::all_of(remap, [&](std::uint8_t place) {
    const bool isNew = place < remap.size() && !used[place];
    used[place] = true;
    return isNew;
  });
}

constexpr bool IsInOrder(const Tone& tone) {
  return tone.lowest < tone.nominal && tone.nominal < tone.highest;
}

constexpr bool IsSound(const ToneSet& set) {
  return set.tones.size() == set.remap.size() && IsPermutation(set.remap) &&
         std::ranges::is_sorted(set.tones, std::ranges::less_equal(), &Tone::nominal) &&
         std::ranges::all_of(set.tones, IsInOrder);
}
static_assert(std::ranges::all_of(kSets, IsSound));
static_assert(std::size(kSets) == kStandardSets + 1);
static_assert(std::ranges::all_of(kSets, [](const ToneSet& set) {
  return set.tones.size() == (set.tones.data() == kCustomTones ? 55 : kToneCodes);
}));

/// Of a generator that counts 65536 steps at 4200 Hz.
constexpr bool HasItsIncrement(const Tone& tone) {
  const std::int32_t off = tone.increment * 4200 - tone.nominal * 65536;
  return -4200 <= off && off <= 4200;
}
static_assert(std::ranges::all_of(kCustomTones, HasItsIncrement));
}  // namespace

const ToneSet* Find(std::int32_t number) {
  return number >= 0 && number < std::ssize(kSets) ? &kSets[number] : nullptr;
}
}  // namespace ToneSets
