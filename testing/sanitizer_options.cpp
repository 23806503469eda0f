// What the sanitizers ask the program for when it starts; without them nobody calls this.

// NOLINTBEGIN(bugprone-reserved-identifier): the names are the sanitizers' own.

/// GLib is built without frame pointers: only by the slower way is it seen who called it.
extern "C" const char *__asan_default_options()
{
    return "fast_unwind_on_malloc=0";
}

/// What libraries allocate while they are loaded. GStreamer needs so many names that GLib gives up the table
/// of them that it made then, on purpose, because another thread can be reading it.
extern "C" const char *__lsan_default_suppressions()
{
    return "leak:ld-linux\n";
}

// NOLINTEND(bugprone-reserved-identifier)
