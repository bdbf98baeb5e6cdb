#pragma once

#include <memory>
#include <vector>

#include "loading/book_source.h"

namespace ovcontacts {

/// The live books of the desktop; none where the program is built without them.
[[nodiscard]] std::vector<std::shared_ptr<BookSource>> liveSources();

}  // namespace ovcontacts
