#include <memory>
#include <ostream>
#include <utility>
#include <vector>

#include "platform/CaseText.h"
#include "workbench/cli/TextTable.h"
#include "workbench/cli/Verb.h"
#include "workbench/files/Printable.h"
#include "workbench/jobs/Conversion.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/TypedNames.h"

namespace {

/// A database version as the tier's list describes it.
struct ListedVersion {
  std::string version;
  std::string base;  // empty for the first
  std::string text;
  bool showsInMenu = false;
};

/// The versions of one model, oldest first.
struct VersionList {
  std::vector<ListedVersion> versions;
  std::string first;     // where the line of bases of the latest one ends
  std::string menuList;  // what the tier hands to a menu: base, text and key of each entry
};

std::vector<std::string> Models() {
  std::vector<std::string> models;
  for (const VersionName& version : SchemaFiles::Versions()) {
    if (models.empty() || models.back() != version.model) models.push_back(version.model);
  }
  return models;
}

ListedVersion Describe(const TierHost& host, IprovInfo& info) {
  ListedVersion listed;
  std::string key;
  Boolean shows = kFalse;
  host.Require(info.Key(key));
  host.Require(info.BaseKey(listed.base));
  host.Require(info.DisplayText(listed.text));
  host.Require(info.ShowInMenu(shows));
  listed.version = VersionOfKey(key);
  if (!listed.base.empty()) listed.base = VersionOfKey(listed.base);
  listed.showsInMenu = shows != kFalse;
  return listed;
}

VersionList AskTier(const std::string& model, Workplace& workplace) {
  const VersionName newest = SchemaFiles::VersionsOf(model).back();
  // The tier lists the versions of the model that is open.
  TierHost host(workplace.Parts(), NewPersonality(workplace.Schemas(), newest.Text()), workplace.Messenger());
  VersionList list;
  std::shared_ptr<IcolProvInfo> known;
  host.Require(host.Versions().TierList(known));
  for (const std::string& version : VersionPath(host, newest)) {
    std::shared_ptr<IprovInfo> info;
    host.Require(known->Item(Variant(SchemaFiles::VersionOf(version).Key()), info));
    list.versions.push_back(Describe(host, *info));
  }
  const VersionName& latest = SchemaFiles::VersionOf(list.versions.back().version);
  std::string first;
  host.Require(host.Versions().GetLatestTierForTierNameAndVersion(latest.model, latest.Digits(), first));
  list.first = VersionOfKey(first);
  host.Require(host.Versions().TierMenuList(list.menuList));
  return list;
}

Json JsonOf(const std::string& model, const VersionList& list) {
  Json versions = Json::List();
  for (const ListedVersion& one : list.versions) {
    versions.Add({{"version", one.version},
                  {"base", one.base.empty() ? Json(nullptr) : Json(one.base)},
                  {"text", one.text},
                  {"inMenu", one.showsInMenu},
                  {"latest", &one == &list.versions.back()}});
  }
  return {{"model", model}, {"first", list.first}, {"menuList", list.menuList}, {"versions", versions}};
}

void Print(const VersionList& list, std::ostream& out) {
  TextTable table({{"Version"}, {"Based on"}, {"In menu"}, {"Text"}, {""}});
  for (const ListedVersion& one : list.versions) {
    const bool isLatest = &one == &list.versions.back();
    table.Add({one.version, one.base, one.showsInMenu ? "yes" : "no", one.text, isLatest ? "latest" : ""});
  }
  table.Print(out);
}

struct VersionsArguments {
  std::string model;
};

ExitCode ListVersions(const VersionsArguments& arguments, Workplace& workplace) {
  const std::string& asked = arguments.model;
  std::vector<std::string> models;
  std::string known;
  for (const std::string& model : Models()) {
    if (asked.empty() || EqualsIgnoringCase(model, asked)) models.push_back(model);
    known += (known.empty() ? "" : ", ") + model;
  }
  if (models.empty()) throw UsageError(Printable::Quoted(asked) + " is no model; the models are " + known);
  Json data = Json::List();
  for (const std::string& model : models) {
    const VersionList list = AskTier(model, workplace);
    data.Add(JsonOf(model, list));
    if (workplace.options.json) continue;
    if (model != models.front()) workplace.Out() << '\n';
    Print(list, workplace.Out());
  }
  if (workplace.options.json) workplace.Emit({{"models", std::move(data)}});
  return ExitCode::Done;
}

void Take(Words& words, VersionsArguments& given) {
  words.Option("--model", given.model, "MODEL", "KD4410, \"KE2210 Rx\" or \"KE2210 Tx\"; all when left out");
}

const Verb kVersions({.name = "versions",
                      .about = "List the database versions that the tier knows",
                      .examples = {{"All versions", "kd4410 versions"},
                                   {"Those of one model", "kd4410 versions --model 'KE2210 Rx'"}}},
                     Take, ListVersions);

}  // namespace
