#pragma once
// The source of the type library, in the interface definition language, made from the member tables.

#include <string>

namespace activex {

/// The whole library as text for the interface compiler, in UTF-8: classes with their interfaces, their
/// events, and the enumerations and records that these use, in the order of the tables. Every call gives
/// the same text.
std::string typeLibrarySource();

} // namespace activex
