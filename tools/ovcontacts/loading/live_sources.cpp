#include "loading/live_sources.h"

namespace ovcontacts {

std::vector<std::shared_ptr<BookSource>> liveSources() { return {}; }

}  // namespace ovcontacts
