import QtQuick
import Vellix.Approval
import Vellix.Board
import Vellix.Jobs
import Vellix.Pictures
import Vellix.Pieces
import Vellix.Ticket

// Which ticket this is, what is known of it, where it lies and what can be done with it. The actions
// stand at the right of the title where there is room, else below it, behind when it is due and who
// reviews it. Tab goes the way of the eye.
Item {
    id: head

    required property FileModel file
    required property ReportModel report
    required property PlanModel plan
    required property ApprovalModel approval
    required property SendModel send
    required property UploadModel upload
    required property ShareModel share
    required property PictureSource pictures

    readonly property fileHeaderView header: file.header
    readonly property real inner: width - 2 * Theme.gap24
    readonly property bool wide: name.implicitWidth + Theme.gap8 + pills.width + Theme.gap24
                                 + actions.wanted <= inner
    readonly property real room: wide ? inner - actions.width - Theme.gap24 : inner
    readonly property real under: title.y + title.height
                                  + (wide ? 0 : Theme.gap8 + actions.height)
    readonly property real told: Math.max(words.height > 0 ? words.y + words.height : under,
                                          wide ? actions.y + actions.height : 0)

    // Where its blocks end, and the lines of the summary, from the top down; and what is left below the
    // last.
    readonly property real air: Theme.gap12
    readonly property real first: Math.max(title.y + title.height, wide ? actions.y + actions.height : 0)
    readonly property var ends: [first, under, ...words.lines, words.y + words.told, words.y + words.known,
                                 told, card.visible ? card.y + card.height : told]

    // At the title, where no key does anything by mistake.
    function takeKeyboard() {
        name.forceActiveFocus(Qt.TabFocusReason);
    }

    KeyboardPart {
        around: head
        at: name
    }

    implicitHeight: (card.visible ? card.y + card.height : told) + air

    FlowRow {
        id: title

        x: Theme.gap24
        y: Theme.gap12
        width: head.room
        height: implicitHeight
        spacing: Theme.gap8

        Label {
            id: name

            width: Math.min(implicitWidth, head.room)
            size: Theme.title
            weight: Font.Bold
            tellsWhole: true
            text: head.header.heading
            Accessible.role: Accessible.Heading
            Accessible.focusable: activeFocus
            // No stop of Tab's, so that Tab would begin anew at the window.
            Keys.onTabPressed: nextItemInFocusChain(true).forceActiveFocus(Qt.TabFocusReason)
            Keys.onBacktabPressed: nextItemInFocusChain(false).forceActiveFocus(Qt.BacktabFocusReason)

            FocusRing {
                visible: name.activeFocus
            }
        }

        Row {
            id: pills

            spacing: Theme.gap8

            StatusPill {
                small: true
                pill: head.header.status
            }

            TrackPill {
                small: true
                pill: head.header.track
            }

            Loader {
                active: head.header.approval !== undefined
                visible: active

                sourceComponent: ApprovalPill {
                    small: true
                    pill: head.header.approval
                }
            }
        }

        VersionChips {
            width: Math.min(implicitWidth, head.room)
            height: implicitHeight
            approval: head.approval
        }

        Item {
            id: besideTitle

            width: childrenRect.width
            height: childrenRect.height

            Row {
                parent: head.wide ? besideTitle : actions.lead
                spacing: Theme.gap8

                DueButton {
                    plan: head.plan
                }

                AssignButton {
                    plan: head.plan
                    pictures: head.pictures
                }
            }
        }

        ShareButton {
            width: implicitWidth
            height: implicitHeight
            share: head.share
        }
    }

    ReviewActions {
        id: actions

        x: head.wide ? head.width - width - Theme.gap24 : Theme.gap24
        y: head.wide ? Theme.gap12 : title.y + title.height + Theme.gap8
        width: head.wide ? wanted : head.inner
        leading: !head.wide
        file: head.file
        report: head.report
    }

    HeaderWords {
        id: words

        x: Theme.gap24
        y: head.under + Theme.gap8
        width: head.room
        header: head.header
    }

    ApprovalCard {
        id: card

        x: Theme.gap24
        y: head.told + Theme.gap12
        width: head.inner
        height: implicitHeight
        approval: head.approval
        send: head.send
        upload: head.upload
        onKeptOut: head.takeKeyboard()
    }
}
