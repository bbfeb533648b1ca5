#include "common/FinalReport.h"

#include <utility>

bool FinalReport::Refuse(FinalPlace place, std::string_view message, Parameters parameters) {
  places_.push_back(std::move(place));
  passed_ = ::Refuse(validator_, message, parameters);
  return LooksOn();
}

Button FinalReport::AskYesNo(FinalPlace place, std::string_view message, Parameters parameters) {
  places_.push_back(std::move(place));
  const Button answer = ::AskYesNo(validator_, message, parameters);
  passed_ = passed_ && answer == Button::Yes;
  return answer;
}

void FinalReport::Warn(FinalPlace place, std::string_view message, Parameters parameters) {
  places_.push_back(std::move(place));
  ::Warn(validator_, message, parameters);
}

void FinalReport::Notify(FinalPlace place, std::string_view message, Parameters parameters) {
  places_.push_back(std::move(place));
  ::Notify(validator_, message, parameters);
}
