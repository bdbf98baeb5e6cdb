// How ThreadSanitizer watches live books, and what it is not to look at: it sees neither the code
// of GLib's libraries nor the locks that GLib makes of futexes, and so takes what they hand from
// one thread to another for a race. Their inner functions have no names that could be told one by
// one. What they call of ours is watched.
extern "C" const char* __tsan_default_options();
extern "C" const char* __tsan_default_suppressions();

// The tests start many short processes. Without this each waits for a second at its end.
extern "C" const char* __tsan_default_options() { return "atexit_sleep_ms=0"; }

extern "C" const char* __tsan_default_suppressions() {
  return
      // The queues of main contexts, and memory that one thread takes and another gives back.
      "called_from_lib:libglib-2.0.so\n"
      // The data of objects and signals, freed by whoever gives up the last reference.
      "called_from_lib:libgobject-2.0.so\n"
      // Messages of the bus, which a thread of its own reads.
      "called_from_lib:libgio-2.0.so\n"
      // Clients and views of books, whose signals the session's thread gets.
      "called_from_lib:libebook-1.2.so\n"
      // Sources and credentials. Half of the unlocking happens within libgobject, so that locks
      // would seem to be held for ever, until there are more than ThreadSanitizer can count.
      "called_from_lib:libedataserver-1.2.so\n"
      // Unlocks what another library has locked.
      "mutex:libedata-book-1.2.so\n"
      // e_source_webdav_set_uri jumps to the unlocking of its lock, which so seems to be called
      // here.
      "mutex:ov::eds::addCardDAVSource\n"
      // Made by who first connects to a server, then used by a thread of GLib's.
      "race:px_proxy_factory_new\n";
}
