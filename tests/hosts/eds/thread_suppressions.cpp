// What ThreadSanitizer is not to tell. It sees neither the code nor the locks of these libraries,
// so it takes what they hand from one thread to another for a race.
extern "C" const char* __tsan_default_suppressions() {
  return
      // Queues of the main contexts, and memory slices that threads pass on; locked with futexes.
      "called_from_lib:libglib-2.0.so.0\n"
      // Reference counts, closures and the data of signals; counted with atomics.
      "called_from_lib:libgobject-2.0.so.0\n"
      // Messages of the bus, which its own thread reads and others are given.
      "called_from_lib:libgio-2.0.so.0\n"
      // The sources, which the registry's own thread changes under locks of GLib.
      "called_from_lib:libedataserver-1.2.so.27\n"
      // Clients and views of books, whose signals wait for the session's thread.
      "called_from_lib:libebook-1.2.so.21\n"
      // Cards, which are made by the thread that fetches them.
      "called_from_lib:libebook-contacts-1.2.so.4\n";
}
