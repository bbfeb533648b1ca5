#pragma once

#include <string>
#include <vector>

/// What a command with these words has printed on standard output: with --json it must be what the schema of
/// its verb (docs/json) tells. A test fails where it is not.
void ExpectDocumented(const std::vector<std::string>& words, const std::string& printed);

/// Where a verb is documented.
std::string JsonSchemaFile(const std::string& verb);
