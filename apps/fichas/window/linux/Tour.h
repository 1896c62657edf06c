#pragma once
// What fichas does where there is no display: a short walk through the file, with a picture at each step.

#include "fichas/window/RecordForm.h"

#include <string>
#include <vector>

namespace fichas {

/// Walks the form by its keys on the headless display: the first record, the next one, its next field, the
/// last record, the first of the next table if there is one. Returns the paths of the pictures, which lie in
/// a new folder among the temporary ones. Throws SourceError where the folder or a picture cannot be written,
/// or when the file turns out to be broken.
std::vector<std::string> takeTour(RecordForm& form, bool hasOtherTables);

} // namespace fichas
