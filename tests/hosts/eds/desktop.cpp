#include "desktop.h"

#include <fcntl.h>
#include <gio/gio.h>
#include <signal.h>
#include <sys/prctl.h>
#include <sys/wait.h>
#include <unistd.h>

#include <chrono>
#include <cstdlib>
#include <filesystem>
#include <fstream>
#include <stdexcept>
#include <thread>

namespace {

namespace fs = std::filesystem;

constexpr const char* kServices = "/usr/share/dbus-1/services";
constexpr std::string_view kPrefix = "org.gnome.evolution.dataserver.";

/// The service's name on the bus grows a number with its version.
std::string serviceName(std::string_view beginning) {
  for (const auto& file : fs::directory_iterator(kServices)) {
    const std::string name = file.path().stem().string();
    if (name.starts_with(std::string(kPrefix) + std::string(beginning))) return name;
  }
  throw std::runtime_error("evolution-data-server is not installed");
}

std::string readLine(int file) {
  std::string line;
  char c = 0;
  while (::read(file, &c, 1) == 1 && c != '\n') line += c;
  return line;
}

std::optional<pid_t> processOf(const std::string& name, const std::string& address) {
  GDBusConnection* const bus = g_dbus_connection_new_for_address_sync(
      address.c_str(),
      static_cast<GDBusConnectionFlags>(G_DBUS_CONNECTION_FLAGS_AUTHENTICATION_CLIENT |
                                        G_DBUS_CONNECTION_FLAGS_MESSAGE_BUS_CONNECTION),
      nullptr, nullptr, nullptr);
  GVariant* const reply = g_dbus_connection_call_sync(
      bus, "org.freedesktop.DBus", "/org/freedesktop/DBus", "org.freedesktop.DBus",
      "GetConnectionUnixProcessID", g_variant_new("(s)", name.c_str()), G_VARIANT_TYPE("(u)"),
      G_DBUS_CALL_FLAGS_NONE, -1, nullptr, nullptr);
  g_object_unref(bus);
  if (reply == nullptr) return std::nullopt;
  guint32 id = 0;
  g_variant_get(reply, "(u)", &id);
  g_variant_unref(reply);
  return static_cast<pid_t>(id);
}

/// The variable as this process has it.
std::string taken(const std::string& name) {
  const char* const value = std::getenv(name.c_str());
  return name + "=" + (value == nullptr ? "" : value);
}

void end(const std::optional<pid_t>& process) {
  if (!process) return;
  ::kill(*process, SIGKILL);
  const bool isGone = eventually([&] {
    ::waitpid(*process, nullptr, WNOHANG);
    return ::kill(*process, 0) != 0;
  });
  if (!isGone) throw std::runtime_error("a service does not end");
}

}  // namespace

Desktop::Desktop() {
  prctl(PR_SET_CHILD_SUBREAPER, 1);
  for (const char* name :
       {"home", "run", "config", "data", "cache", "state", "tmp", "services", "no-modules"}) {
    fs::create_directory(path(name));
  }
  fs::permissions(path("run"), fs::perms::owner_all);
  writeServices();
  start({});
}

void Desktop::start(const std::function<void()>& prepare) {
  int ends[2] = {};
  if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  bus_.emplace(std::vector<std::string>{"dbus-daemon", "--nofork", "--nopidfile",
                                        "--config-file=" + path("bus.conf"),
                                        "--print-address=" + std::to_string(ends[1])},
               environment(), ends[1], prepare);
  close(ends[1]);
  address_ = readLine(ends[0]);
  close(ends[0]);
  if (address_.empty()) throw std::runtime_error("the session bus did not start");
}

void Desktop::restart(const std::function<void()>& prepare) {
  const auto processes = {factory(), registry()};
  bus_.reset();
  for (const auto& process : processes) end(process);
  start(prepare);
}

void Desktop::writeServices() const {
  for (const char* beginning : {"Sources", "AddressBook"}) {
    const std::string name = serviceName(beginning);
    std::ifstream from(fs::path(kServices) / (name + ".service"));
    std::ofstream to(path("services/" + name + ".service"));
    for (std::string line; std::getline(from, line);) {
      if (!line.starts_with("SystemdService")) to << line << '\n';
    }
  }
  std::ofstream(path("bus.conf"))
      << R"(<!DOCTYPE busconfig PUBLIC "-//freedesktop//DTD D-Bus Bus Configuration 1.0//EN")"
      << R"( "http://www.freedesktop.org/standards/dbus/1.0/busconfig.dtd">)"
      << "<busconfig><type>session</type><listen>unix:tmpdir=" << path("tmp") << "</listen>"
      << "<auth>EXTERNAL</auth><servicedir>" << path("services") << "</servicedir>"
      << R"(<policy context="default"><allow send_destination="*" eavesdrop="true"/>)"
      << R"(<allow eavesdrop="true"/><allow own="*"/></policy>)"
      // A bus of its own would take less than a desktop's, too little for a large book.
      << R"(<limit name="max_incoming_bytes">1000000000</limit>)"
      << R"(<limit name="max_outgoing_bytes">1000000000</limit>)"
      << R"(<limit name="max_message_size">1000000000</limit></busconfig>)";
}

std::vector<std::string> Desktop::environment() const {
  const char* const programs = std::getenv("PATH");
  return {std::string("PATH=") + (programs == nullptr ? "/usr/bin:/bin" : programs),
          taken("ASAN_OPTIONS"),
          taken("TSAN_OPTIONS"),
          "LANG=C.UTF-8",
          "LC_ALL=C.UTF-8",
          "HOME=" + path("home"),
          "TMPDIR=" + path("tmp"),
          "XDG_RUNTIME_DIR=" + path("run"),
          "XDG_CONFIG_HOME=" + path("config"),
          "XDG_DATA_HOME=" + path("data"),
          "XDG_CACHE_HOME=" + path("cache"),
          "XDG_STATE_HOME=" + path("state"),
          "GSETTINGS_BACKEND=memory",
          "GIO_USE_VFS=local",
          "GIO_USE_NETWORK_MONITOR=base",
          "NO_AT_BRIDGE=1",
          "EDS_REGISTRY_MODULES=" + path("no-modules"),
          "DBUS_SESSION_BUS_ADDRESS=" + address_};
}

std::optional<pid_t> Desktop::factory() const {
  return processOf(serviceName("AddressBook"), address_);
}

std::optional<pid_t> Desktop::registry() const {
  return processOf(serviceName("Sources"), address_);
}

Desktop& Desktop::ofThisProcess() {
  static Desktop* const desktop = [] {
    auto* const made = new Desktop;
    for (const std::string& variable : made->environment()) {
      const auto equals = variable.find('=');
      setenv(variable.substr(0, equals).c_str(), variable.substr(equals + 1).c_str(), 1);
    }
    // The folder and the bus go with the process; what the bus started goes with the bus.
    std::atexit([] { delete &Desktop::ofThisProcess(); });
    return made;
  }();
  return *desktop;
}

bool eventually(const std::function<bool()>& isThere) {
  constexpr std::chrono::seconds kLongest{30};
  constexpr std::chrono::milliseconds kPause{2};
  const auto end = std::chrono::steady_clock::now() + kLongest;
  while (!isThere()) {
    if (std::chrono::steady_clock::now() > end) return false;
    std::this_thread::sleep_for(kPause);
  }
  return true;
}
