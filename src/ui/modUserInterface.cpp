#include "ui/modUserInterface.h"

#include "common/HostServices.h"
#include "common/Procedure.h"
#include "platform/System.h"

namespace modUserInterface {
namespace {
struct Tables {
  colUserFields userFields;
  colCTCSS ctcss;
  colDCS dcs;
};
Tables tables;
bool loaded = false;
}  // namespace

bool InitialiseUserInterface() {
  return Procedure("InitialiseUserInterface", false, [] {
    if (loaded) return true;
    tables = Tables{};
    const std::string folder = HostServices::ApplicationFolder();
    loaded = tables.userFields.ReadInDataFromTextFile(System::PathIn(folder, "KD4410_UI_U.dat")) &&
             tables.dcs.ReadInDataFromTextFile(System::PathIn(folder, "KD4410_UI_D.dat")) &&
             tables.ctcss.ReadInDataFromTextFile(System::PathIn(folder, "KD4410_UI_C.dat"));
    return loaded;
  });
}

const colUserFields& UserFields() { return tables.userFields; }
const colCTCSS& CTCSS() { return tables.ctcss; }
const colDCS& DCS() { return tables.dcs; }
}  // namespace modUserInterface
