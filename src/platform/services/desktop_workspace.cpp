#include "platform/services/desktop_workspace.h"

#include <string>

#include "platform/services/detached_process.h"
#include "platform/services/program_search.h"

namespace ov {

bool DesktopWorkspace::open(const OVString& url) {
  const std::string program = findProgram("xdg-open");
  return !program.empty() && startDetached(program, url.str());
}

}  // namespace ov
