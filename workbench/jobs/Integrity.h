#pragma once

#include <string>
#include <string_view>
#include <vector>

#include "platform/Variant.h"
#include "workbench/personality/PersonalityFile.h"

class Provider;

/// What can be wrong with what a personality stores.
enum class DamageKind {
  Reference,   // it points at a record that is not there
  Number,      // by which a record is known: two have it, or it is none
  Companions,  // a table that does not keep step with its owner's
  Chain,       // the members of a group, and how they are linked
  Presets,     // of DTMF: a system has more or fewer than it needs
  Version,     // model and database version that the document does not have
  Shape,       // an array of more or fewer rows than it needs
  Range,       // a number that its field can not hold
};
std::string_view NameOf(DamageKind kind);

/// One place of it. Opening mends most of it on its own, and a save writes what came of that.
struct Damage {
  DamageKind kind;
  PersonalityFile::Place place;
  Variant value;                 // of the cell; Empty for a record or a table
  std::string text;              // what is wrong
  int line = 0;                  // of the file; 0: not looked up
  std::string consequence = {};  // of opening and saving; empty: not tried
};

/// Judges what is stored, by the schema alone: to be called on what a file holds, before any conversion. One
/// for a cell, the gravest.
std::vector<Damage> DamagesOf(const Provider& stored);

/// What opening and saving alone has made of the place: "a save makes 0 of it", "a save keeps it".
std::string ConsequenceOf(const Damage& damage, const Provider& stored, const Provider& saved);
