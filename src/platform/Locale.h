#pragma once

/// The user's decimal symbol: the first character of the default locale's, "." when there is none.
char DecimalSymbol();

/// Replaces the user's decimal symbol in this process; '\0' goes back to the locale's own.
void SetDecimalSymbol(char symbol);
