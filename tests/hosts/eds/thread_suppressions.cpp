// What ThreadSanitizer is not to look at. It sees neither the code of these libraries nor the locks
// that GLib makes of futexes, and so takes what they hand from one thread to another for a race.
// What they call of ours is watched.
extern "C" const char* __tsan_default_suppressions();

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
      // Its locks lie in memory that GLib has given to others before.
      "deadlock:libedataserver-1.2.so\n"
      "mutex:libedataserver-1.2.so\n"
      "mutex:libedata-book-1.2.so\n";
}
