// URLs handed to a program called `xdg-open`, for which a witness is used.

#include <fcntl.h>
#include <sys/stat.h>
#include <sys/wait.h>
#include <unistd.h>

#include <algorithm>
#include <array>
#include <atomic>
#include <cerrno>
#include <csignal>
#include <cstdlib>
#include <iterator>
#include <string>
#include <system_error>
#include <thread>
#include <vector>

#include <OVAddressBookSDK/workspace.h>

#include "support/processes/child_process.h"
#include "support/processes/temporary_folder.h"

namespace {

using testing::HasSubstr;
using testing::StartsWith;

class UrlOpening : public testing::Test {
 protected:
  UrlOpening() {
    ::setenv("PATH", folder_.path().c_str(), 1);
    if (::mkfifo(folder_.at("report").c_str(), 0600) != 0) {
      throw std::system_error(errno, std::generic_category(), "mkfifo");
    }
  }
  ~UrlOpening() override {
    // Releases handlers that a failed test has left waiting.
    ::close(::open(folder_.at("report").c_str(), O_RDWR | O_NONBLOCK | O_CLOEXEC));
  }

  void installWitness() const {
    std::filesystem::create_symlink(OV_URL_HANDLER, folder_.path() / "xdg-open");
  }
  void installScript(const std::string& script) const { installScriptAt("xdg-open", script); }
  void installScriptAt(const std::string& name, const std::string& script) const {
    writeFile(folder_.path() / name, "#!/bin/sh\n" + script);
    std::filesystem::permissions(folder_.path() / name, std::filesystem::perms::owner_all);
  }

  /// What the handlers have reported when so many lines of it are there.
  [[nodiscard]] std::string report(int lines = 1) const {
    // Opened for writing, too, so that the end does not come between two handlers.
    const int pipe = ::open(folder_.at("report").c_str(), O_RDWR | O_CLOEXEC);
    std::string text;
    std::array<char, 4096> buffer;
    while (std::count(text.begin(), text.end(), '\n') < lines) {
      const ssize_t count = ::read(pipe, buffer.data(), buffer.size());
      if (count < 0 && errno == EINTR) continue;
      if (count <= 0) break;
      text.append(buffer.data(), static_cast<std::size_t>(count));
    }
    ::close(pipe);
    return text;
  }

  static bool open(const OVString& url) { return OVWorkspace::sharedWorkspace()->openURL(url); }

  static bool hasChildren() { return ::waitpid(-1, nullptr, WNOHANG) != -1 || errno != ECHILD; }

  const TemporaryFolder folder_;
};

TEST_F(UrlOpening, RunsTheHandlerWithTheUrlAsItsOnlyArgument) {
  installWitness();
  EXPECT_TRUE(open("tel:15550109999"));
  EXPECT_THAT(report(), StartsWith("arguments=1 [tel:15550109999] "));
}

TEST_F(UrlOpening, RunsAScript) {
  installScript("printf '%s|%s\\n' \"$#\" \"$1\" > \"${0%/*}/report\"\n");
  EXPECT_TRUE(open("mailto:a@b"));
  EXPECT_EQ(report(), "1|mailto:a@b\n");
}

TEST_F(UrlOpening, NoShellReadsTheUrl) {
  installWitness();
  const std::string url = "mailto:$(echo$IFS'x';)*&a@b?c;d";
  EXPECT_TRUE(open(url));
  EXPECT_THAT(report(), StartsWith("arguments=1 [" + url + "] "));
}

TEST_F(UrlOpening, TextThatIsNoUrlStartsNothing) {
  installWitness();
  EXPECT_FALSE(open("mailto:a b@c"));
  EXPECT_FALSE(open(nullptr));
  EXPECT_TRUE(open("tel:1"));
  EXPECT_THAT(report(), StartsWith("arguments=1 [tel:1] "));
}

TEST_F(UrlOpening, LeavesNoZombieAndNoChild) {
  installWitness();
  EXPECT_TRUE(open("tel:1"));
  EXPECT_FALSE(hasChildren());
  EXPECT_THAT(report(), testing::Not(HasSubstr("parent=" + std::to_string(::getpid()) + "\n")));
  EXPECT_FALSE(hasChildren());
}

TEST_F(UrlOpening, TheHandlerLivesInASessionOfItsOwn) {
  installWitness();
  EXPECT_TRUE(open("tel:1"));
  EXPECT_THAT(report(), testing::Not(HasSubstr(" session=" + std::to_string(::getsid(0)) + " ")));
}

TEST_F(UrlOpening, TheHandlerInheritsNoDescriptor) {
  installWitness();
  const int low = ::open("/dev/zero", O_RDONLY);
  const int high = ::fcntl(low, F_DUPFD, 900);
  ASSERT_GE(high, 900);
  EXPECT_TRUE(open("tel:1"));
  EXPECT_THAT(report(), HasSubstr(" descriptors= 0:/dev/null 1:/dev/null 2:/dev/null signals="));
  ::close(low);
  ::close(high);
}

TEST_F(UrlOpening, TheHandlerHasItsStreamsAlsoWhenTheHostHasNone) {
  installWitness();
  std::array<int, 3> kept = {};
  for (int stream = 0; stream < 3; ++stream) {
    kept.at(static_cast<std::size_t>(stream)) = ::fcntl(stream, F_DUPFD_CLOEXEC, 10);
  }
  for (int stream = 0; stream < 3; ++stream) ::close(stream);
  const bool opened = open("tel:1");
  for (int stream = 0; stream < 3; ++stream) {
    ::dup2(kept.at(static_cast<std::size_t>(stream)), stream);
    ::close(kept.at(static_cast<std::size_t>(stream)));
  }
  EXPECT_TRUE(opened);
  EXPECT_THAT(report(), HasSubstr(" descriptors= 0:/dev/null 1:/dev/null 2:/dev/null signals="));
}

TEST_F(UrlOpening, TheHandlerHasAllSignalsAsTheyAreByDefault) {
  installWitness();
  std::signal(SIGPIPE, SIG_IGN);
  std::signal(SIGINT, SIG_IGN);
  sigset_t blocked;
  sigemptyset(&blocked);
  sigaddset(&blocked, SIGTERM);
  ::pthread_sigmask(SIG_BLOCK, &blocked, nullptr);
  EXPECT_TRUE(open("tel:1"));
  EXPECT_THAT(report(), HasSubstr(" signals=0 "));
}

TEST_F(UrlOpening, TheHostsSignalMaskStaysAsItIs) {
  installWitness();
  sigset_t blocked;
  sigset_t after;
  sigemptyset(&blocked);
  sigaddset(&blocked, SIGUSR1);
  ::pthread_sigmask(SIG_SETMASK, &blocked, nullptr);
  EXPECT_TRUE(open("tel:1"));
  ::pthread_sigmask(SIG_SETMASK, nullptr, &after);
  for (int number = 1; number <= SIGSYS; ++number) {
    EXPECT_EQ(sigismember(&after, number), number == SIGUSR1 ? 1 : 0) << number;
  }
  (void)report();
}

TEST_F(UrlOpening, DoesNotWaitForTheHandler) {
  installScript("read line < \"${0%/*}/go\"\necho \"$line\" > \"${0%/*}/report\"\n");
  ASSERT_EQ(::mkfifo(folder_.at("go").c_str(), 0600), 0);
  // The handler ends only when it has read what is written after the call has returned.
  EXPECT_TRUE(open("tel:1"));
  writeFile(folder_.at("go"), "went on\n");
  EXPECT_EQ(report(), "went on\n");
}

TEST_F(UrlOpening, WorksWhenTheHostIgnoresItsChildren) {
  installWitness();
  std::signal(SIGCHLD, SIG_IGN);
  EXPECT_TRUE(open("tel:1"));
  EXPECT_THAT(report(), HasSubstr(" signals=0 "));
  std::signal(SIGCHLD, SIG_DFL);
}

volatile std::sig_atomic_t reaped = 0;

void reapAll(int /*signal*/) {
  const int before = errno;
  while (::waitpid(-1, nullptr, WNOHANG) > 0) reaped = reaped + 1;
  errno = before;
}

TEST_F(UrlOpening, WorksWhenTheHostReapsAllChildrenItself) {
  installWitness();
  std::signal(SIGCHLD, &reapAll);
  EXPECT_TRUE(open("tel:1"));
  EXPECT_THAT(report(), StartsWith("arguments=1 [tel:1] "));
  std::signal(SIGCHLD, SIG_DFL);
  EXPECT_FALSE(hasChildren());
}

TEST_F(UrlOpening, TheHostsOwnChildrenAreLeftToTheHost) {
  installScript("exit 1\n");
  ChildProcess own([] { return true; });
  for (int call = 0; call < 20; ++call) EXPECT_TRUE(open("tel:1"));
  EXPECT_TRUE(own.succeeded());
}

TEST_F(UrlOpening, AnswersFalseWhenNoHandlerIsInstalled) {
  EXPECT_FALSE(open("tel:1"));
  EXPECT_FALSE(hasChildren());
}

TEST_F(UrlOpening, AnswersFalseWhenTheHandlerCannotBeRun) {
  writeFile(folder_.path() / "xdg-open", "#!/nowhere/interpreter\n");
  std::filesystem::permissions(folder_.path() / "xdg-open", std::filesystem::perms::owner_all);
  EXPECT_FALSE(open("tel:1"));
  EXPECT_FALSE(hasChildren());
}

std::atomic<int> forks = 0;

TEST_F(UrlOpening, TheProcessIsNotCopied) {
  // What a fork costs grows with the memory of the host.
  installWitness();
  ASSERT_EQ(::pthread_atfork([] { ++forks; }, nullptr, nullptr), 0);
  EXPECT_TRUE(open("tel:1"));
  EXPECT_EQ(forks, 0);
  (void)report();
}

TEST_F(UrlOpening, AFolderAndAFileThatCannotRunAreNoHandlers) {
  std::filesystem::create_directory(folder_.path() / "xdg-open");
  EXPECT_FALSE(open("tel:1"));
  std::filesystem::remove(folder_.path() / "xdg-open");
  writeFile(folder_.path() / "xdg-open", "#!/bin/sh\n");
  std::filesystem::permissions(folder_.path() / "xdg-open", std::filesystem::perms::owner_read);
  EXPECT_FALSE(open("tel:1"));
}

TEST_F(UrlOpening, TheFirstHandlerInThePathIsTaken) {
  std::filesystem::create_directory(folder_.path() / "a");
  std::filesystem::create_directory(folder_.path() / "b");
  installScriptAt("a/xdg-open", "echo a > \"${0%/*/*}/report\"\n");
  installScriptAt("b/xdg-open", "echo b > \"${0%/*/*}/report\"\n");
  const std::string path = folder_.at("none") + ":" + folder_.at("b") + ":" + folder_.at("a");
  ::setenv("PATH", path.c_str(), 1);
  EXPECT_TRUE(open("tel:1"));
  EXPECT_EQ(report(), "b\n");
}

TEST_F(UrlOpening, TheCurrentFolderIsNeverSearched) {
  installWitness();
  const auto before = std::filesystem::current_path();
  std::filesystem::current_path(folder_.path());
  for (const char* path : {"", ":", ".", ".:./", "::/nowhere"}) {
    ::setenv("PATH", path, 1);
    EXPECT_FALSE(open("tel:1")) << path;
  }
  std::filesystem::current_path(before);
}

TEST_F(UrlOpening, AThousandCallsLeaveNothingBehind) {
  const auto descriptors = [] {
    return std::distance(std::filesystem::directory_iterator("/proc/self/fd"), {});
  };
  installScript("exit 0\n");
  const auto before = descriptors();
  for (int call = 0; call < 1000; ++call) EXPECT_TRUE(open("tel:1"));
  EXPECT_EQ(descriptors(), before);
  EXPECT_FALSE(hasChildren());
}

TEST_F(UrlOpening, ThreadsMayOpenUrlsAtOnce) {
  constexpr int kThreads = 8;
  constexpr int kCalls = 5;
  installWitness();
  std::vector<std::thread> threads;
  threads.reserve(kThreads);
  for (int number = 0; number < kThreads; ++number) {
    threads.emplace_back([number] {
      for (int call = 0; call < kCalls; ++call) {
        EXPECT_TRUE(open("tel:" + std::to_string(10 * number + call)));
      }
    });
  }
  const std::string all = report(kThreads * kCalls);
  for (auto& thread : threads) thread.join();
  for (int number = 0; number < kThreads; ++number) {
    for (int call = 0; call < kCalls; ++call) {
      EXPECT_THAT(all, HasSubstr("[tel:" + std::to_string(10 * number + call) + "]"));
    }
  }
  EXPECT_FALSE(hasChildren());
}

}  // namespace
