#pragma once

#include <memory>

#include "platform/Types.h"
#include "workbench/jobs/Session.h"
#include "workbench/store/Provider.h"

/// What the benchmarks measure on. Everything is made on first use and kept.
inline constexpr const char* kFullFile = SAMPLES_FOLDER "/full.json";

HostParts Parts();

/// The largest personality, as it comes from its file.
const Provider& FullPersonality();
std::unique_ptr<Session> NewSession(std::shared_ptr<Provider> provider);

/// The largest personality on its forms, for all figures that leave it as it was.
Session& OpenSession();

/// As many channels on one network, each a member of one group. Its tables have room for many more records
/// than a radio has.
std::shared_ptr<Provider> ManyChannels(RecordNr count);

/// Lets the tier find another store than the session's own for a while.
class OtherStore {
 public:
  OtherStore(Session& session, std::shared_ptr<Provider> provider) : session_(session) {
    session_.Host().UseStore(std::move(provider));
  }
  ~OtherStore() { session_.Host().UseStore(session_.SharedContent()); }
  OtherStore(const OtherStore&) = delete;
  OtherStore& operator=(const OtherStore&) = delete;

 private:
  Session& session_;
};
