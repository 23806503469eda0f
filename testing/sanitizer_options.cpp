// Called by the sanitizers when the program starts.

// NOLINTBEGIN(bugprone-reserved-identifier): the sanitizers' names

/// GLib is built without frame pointers, so only the slow unwinder finds its callers.
extern "C" const char *__asan_default_options()
{
    return "fast_unwind_on_malloc=0";
}

/// Memory that libraries allocate while they are loaded. GLib leaks its first table of quarks on purpose when
/// GStreamer makes it grow, since another thread may be reading it.
extern "C" const char *__lsan_default_suppressions()
{
    return "leak:ld-linux\n";
}

// NOLINTEND(bugprone-reserved-identifier)
