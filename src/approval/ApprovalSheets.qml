pragma ComponentBehavior: Bound

import QtQuick
import Vellix.Approval
import Vellix.Pieces

// The sheets of the round of approval. They are open for as long as what is prepared in them, also
// where the ticket's view gives way to another's.
Item {
    id: sheets

    required property SendModel send
    required property UploadModel upload

    // A PDF is to be chosen, and given to `upload`.
    signal choosing()
    // What opened a sheet does not take the keyboard back.
    signal keptOut()

    OnDemand {
        id: sending

        SendForApproval {
            parent: sheets
            send: sheets.send
            onKeptOut: sheets.keptOut()
        }
    }

    OnDemand {
        id: revising

        UploadRevision {
            parent: sheets
            upload: sheets.upload
            onChoosing: sheets.choosing()
            onKeptOut: sheets.keptOut()
        }
    }

    Connections {
        target: sheets.send

        function onOpenChanged() {
            if (sheets.send.open)
                (sending.made() as SendForApproval).begin();
            else
                (sending.object as SendForApproval)?.close();
        }
    }

    Connections {
        target: sheets.upload

        function onOpenChanged() {
            if (sheets.upload.open)
                (revising.made() as UploadRevision).begin();
            else
                (revising.object as UploadRevision)?.close();
        }
    }
}
