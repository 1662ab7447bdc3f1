import Vellix.Pieces

// The pill of a state of approval.
ValuePill {}
