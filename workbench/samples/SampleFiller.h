#pragma once

class Provider;

namespace Samples {

/// Gives every number and sequence of the raw tables a value within its limits that is not the default and
/// differs from the field beside it and from the record beside it, as far as the limits let it: flags
/// alternate, a sequence spells its field and its record. Texts stay as they are, and so does what a value of
/// its own would make wrong.
void FillTelling(Provider& content);

}  // namespace Samples
