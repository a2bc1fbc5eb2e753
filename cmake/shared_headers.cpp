// A library needs a source; this one is here for its precompiled headers alone.
