#pragma once

#include <string>

class Workplace;
struct SchemaField;

/// Tells all that is known of one field of the forms: what it is called, what its control takes, in which
/// unit and with which words, where it stands and when it is enabled. A list of the tier is the one of a new
/// personality of the version ("KD4410.0094").
void TellField(const SchemaField& field, const std::string& uiid, const std::string& version,
               Workplace& workplace);
