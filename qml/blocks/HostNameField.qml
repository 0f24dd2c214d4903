import QtQuick 2.12

// The host name of a unit. A name comes from the network and may be anything: characters that turn the
// reading direction, so that one unit could pose as another, and control characters are shown as marks, and
// no more than 15 characters fit in. A field that the operator left alone still stands for the name as it
// came, so that a save does not rename the unit.
//
// Properties: all of NetworkField; name, what a save sends. Functions: show(name).
NetworkField {
    property string unitName: ""
    property string shownName: ""
    readonly property string name: text === shownName ? unitName : text

    readonly property var unseen: new RegExp("[\\u0000-\\u001f\\u007f-\\u009f\\u061c\\u200b-\\u200f"
                                             + "\\u2028-\\u202e\\u2060-\\u206f\\ufeff]", "g")

    function show(name) {
        unitName = name
        text = name.replace(unseen, "\ufffd")
        shownName = text
    }

    maximumLength: 15
    validator: RegExpValidator { regExp: /[0-9A-Za-z_ ]{1,15}/ }
}
