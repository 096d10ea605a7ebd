#pragma once

#include <string>

namespace tarvola::store {

/// Whether a file is an embedded store, by its first bytes and whatever its name: nothing else may ever be put in its
/// place. False for a file that is not there or cannot be read.
bool isStoreFile(const std::string& path);

}  // namespace tarvola::store
