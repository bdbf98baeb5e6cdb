#include "live/live_sources.h"

namespace ovcontacts {

std::shared_ptr<LiveSources> liveSources() { return nullptr; }

}  // namespace ovcontacts
