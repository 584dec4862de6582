// Empty: the target that holds the precompiled header needs a source.
