import QtQuick
import Vellix.Pieces

// The pill of a severity.
ValuePill {}
