// Compiles nothing of its own: the target of the compiled headers needs a source.
