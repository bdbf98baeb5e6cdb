#pragma once

#include <iosfwd>
#include <string>
#include <vector>

namespace ovbook {

class LiveBooks;

/// Runs one command. `arguments` are those after the program's name. Results go to `out`, which
/// reports what it cannot take by throwing `OutputError`; everything else goes to `err`. Returns
/// the exit status and throws nothing. Null for `live` leaves the desktop's books to another
/// program.
[[nodiscard]] int run(const std::vector<std::string>& arguments, std::ostream& out,
                      std::ostream& err, const LiveBooks* live = nullptr);

}  // namespace ovbook
