// A precompiled header needs a source.
