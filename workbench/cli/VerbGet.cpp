#include <utility>

#include "workbench/cli/Report.h"
#include "workbench/cli/Verb.h"
#include "workbench/jobs/Wording.h"
#include "workbench/schema/Schema.h"
#include "workbench/store/Provider.h"
#include "workbench/store/TypedNames.h"

namespace {

struct GetArguments {
  std::string file;
  std::string name;
  RecordNr record = 0;  // 0: all records
};

void Take(Words& words, GetArguments& given) {
  words.Required("FILE", given.file, "The personality");
  words.Required("FIELD", given.name, "UIID (TxFreq_k6k) or FieldId (5.ChannelTxFreq)");
  words.OptionalRecord("RECORD", given.record, "Record, from 1; all when left out");
}

ExitCode Get(const GetArguments& arguments, Workplace& workplace) {
  OpenedFile opened(workplace, arguments.file, workplace.Messenger());
  opened.ShowForms();
  const Provider& content = opened.Content();
  const SchemaField& field = TypedNames::FieldNamed(content.GetSchema(), arguments.name);
  RecordNr first = 1;
  RecordNr last = content.Count(field.table);
  if (arguments.record != 0) {
    TypedNames::RequireRecord(content, field, arguments.record);
    first = last = arguments.record;
  }
  Json values = Json::List();
  for (RecordNr record = first; record <= last; ++record) {
    const Variant& value = content.Get(field, record);
    if (workplace.options.json) {
      Json one = {{"record", record}};
      Report::AddValue(one, "value", Report::JsonOf(field, value),
                       Wording::WordOf(opened.GetSession(), field, record, value));
      values.Add(std::move(one));
    } else {
      workplace.Out() << Wording::TextOf(opened.GetSession(), field, record, value) << '\n';
    }
  }
  if (workplace.options.json) {
    workplace.Emit({{"name", field.CommonName()}, {"fieldId", field.id}, {"values", std::move(values)}});
  }
  return ExitCode::Done;
}

const Verb kGet({.name = "get",
                 .about = "Print the value of a field",
                 .examples = {{"The receive frequency of the second channel",
                               "kd4410 get samples/city-fleet.json RxFreq_k6k 2"},
                              {"What is stored of all transmit frequencies",
                               "kd4410 get samples/city-fleet.json 5.ChannelTxFreq"}}},
                Take, Get);

}  // namespace
