#include <OVAddressBookSDK/OVAddressBookSDK.h>
#include <gtk/gtk.h>

#include <functional>
#include <memory>
#include <string>
#include <utility>

/// Opens URLs as GTK does: through the portal in a sandbox, else by the desktop's own rules.
class GtkWorkspace : public OVWorkspace {
  bool open(const OVString& url) override {
    // GTK belongs to the main loop's thread, and `open` may be called on any.
    onMainLoop([text = url.str()] { gtk_show_uri(nullptr, text.c_str(), GDK_CURRENT_TIME); });
    return true;
  }

 public:
  static void onMainLoop(std::function<void()> work) {
    g_idle_add_once(
        [](gpointer data) {
          const std::unique_ptr<std::function<void()>> owned(
              static_cast<std::function<void()>*>(data));
          (*owned)();
        },
        new std::function<void()>(std::move(work)));
  }
};

/// Lets the program's log handlers have the library's lines.
class GLibLog : public OVLog {
  void write(const OVString& line) override { g_info("%s", line.c_str()); }
};

int main() {
  OVWorkspace::setSharedWorkspace(std::make_shared<GtkWorkspace>());
  OVLog::setSharedLog(std::make_shared<GLibLog>());

  GMainLoop* loop = g_main_loop_new(nullptr, FALSE);
  std::string shown;
  // Notifications arrive on the thread that causes them; what is on screen changes on the main
  // loop.
  const auto observer = OVNotificationCenter::defaultCenter()->addObserver(
      OVPersonChangeNameNotification, [&](const OVNotification& notification) {
        GtkWorkspace::onMainLoop([&shown, loop, person = notification.object] {
          shown = ov::cast<OVPersonGeneral>(person)->ID().str();
          g_main_loop_quit(loop);
        });
      });
  GThread* other = g_thread_new(
      "import",
      [](gpointer) -> gpointer {
        OVNotificationCenter::defaultCenter()->postNotificationName(
            OVPersonChangeNameNotification, OVPersonGeneral::initWithID("mira-1"));
        return nullptr;
      },
      nullptr);
  g_main_loop_run(loop);
  g_thread_join(other);
  g_main_loop_unref(loop);
  g_print("redraw %s\n", shown.c_str());
}
