#include "platform/Locale.h"

#include <locale>
#include <stdexcept>

namespace {
char SymbolOfUserLocale() {
  try {
    return std::use_facet<std::numpunct<char>>(std::locale("")).decimal_point();
  } catch (const std::runtime_error&) {  // the environment names a locale that is not installed
    return '.';
  }
}

char chosenSymbol = '\0';
}  // namespace

char DecimalSymbol() {
  static const char ofLocale = SymbolOfUserLocale();
  return chosenSymbol != '\0' ? chosenSymbol : ofLocale;
}

void SetDecimalSymbol(char symbol) { chosenSymbol = symbol; }
