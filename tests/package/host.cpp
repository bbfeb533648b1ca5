// The smallest host: knows nothing but the contract headers, loads a tier library and asks it for its bands.
#include <dlfcn.h>

#include <iostream>

#include "host/TierLibrary.h"
#include "platform/Conversions.h"

int main(int argc, char** argv) {
  void* library = argc > 1 ? dlopen(argv[1], RTLD_NOW) : nullptr;
  if (library == nullptr) return 2;
  const auto getClassObject =
      reinterpret_cast<DllGetClassObjectFunction>(dlsym(library, "DllGetClassObject"));
  std::shared_ptr<IclassFactory> factory;
  std::shared_ptr<IproviderOwner> owner;
  XArrayDBObject bands;
  if (getClassObject("clsKD4410ProvOwn", factory) != 0) return 1;
  if (!factory->CreateProviderOwner(owner).Ok() || !owner->GetBands(bands).Ok()) return 1;
  if (bands.Count(1) != 10) return 1;
  std::cout << "first band: " << CStr(bands.GetValue(0, 0)) << '\n';
  return 0;
}
