// GNUstep asks for this of its own runtime, which a check of the syntax needs nothing of.
