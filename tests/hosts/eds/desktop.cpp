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

std::vector<char*> pointers(std::vector<std::string>& texts) {
  std::vector<char*> all;
  for (std::string& text : texts) all.push_back(text.data());
  all.push_back(nullptr);
  return all;
}

std::string readLine(int file) {
  std::string line;
  char c = 0;
  while (::read(file, &c, 1) == 1 && c != '\n') line += c;
  return line;
}

std::optional<pid_t> processOf(const std::string& name) {
  GDBusConnection* const bus = g_bus_get_sync(G_BUS_TYPE_SESSION, nullptr, nullptr);
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

}  // namespace

Daemon::Daemon(const std::vector<std::string>& command, const std::vector<std::string>& environment,
               int inherited) {
  std::vector<std::string> words = command;
  std::vector<std::string> variables = environment;
  const auto arguments = pointers(words);
  const auto surroundings = pointers(variables);
  const pid_t parent = getpid();
  id_ = fork();
  if (id_ != 0) return;
  prctl(PR_SET_PDEATHSIG, SIGKILL);
  if (getppid() != parent) _exit(1);
  if (inherited >= 0) fcntl(inherited, F_SETFD, 0);
  const int log = open("/dev/null", O_RDWR);
  for (const int standard : {STDIN_FILENO, STDOUT_FILENO, STDERR_FILENO}) dup2(log, standard);
  execvpe(arguments.front(), arguments.data(), surroundings.data());
  _exit(127);
}

Daemon::~Daemon() {
  ::kill(id_, SIGKILL);
  ::waitpid(id_, nullptr, 0);
}

Desktop::Desktop() {
  prctl(PR_SET_CHILD_SUBREAPER, 1);
  for (const char* name :
       {"home", "run", "config", "data", "cache", "state", "tmp", "services", "no-modules"}) {
    fs::create_directory(path(name));
  }
  fs::permissions(path("run"), fs::perms::owner_all);
  writeServices();
  int ends[2] = {};
  if (pipe2(ends, O_CLOEXEC) != 0) throw std::runtime_error("no pipe");
  bus_.emplace(std::vector<std::string>{"dbus-daemon", "--nofork", "--nopidfile",
                                        "--config-file=" + path("bus.conf"),
                                        "--print-address=" + std::to_string(ends[1])},
               environment(), ends[1]);
  close(ends[1]);
  address_ = readLine(ends[0]);
  close(ends[0]);
  if (address_.empty()) throw std::runtime_error("the session bus did not start");
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
      << R"(<allow eavesdrop="true"/><allow own="*"/></policy></busconfig>)";
}

std::vector<std::string> Desktop::environment() const {
  const char* const programs = std::getenv("PATH");
  const char* const watched = std::getenv("ASAN_OPTIONS");
  return {std::string("PATH=") + (programs == nullptr ? "/usr/bin:/bin" : programs),
          std::string("ASAN_OPTIONS=") + (watched == nullptr ? "" : watched),
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

std::optional<pid_t> Desktop::factory() const { return processOf(serviceName("AddressBook")); }

std::optional<pid_t> Desktop::registry() const { return processOf(serviceName("Sources")); }

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
