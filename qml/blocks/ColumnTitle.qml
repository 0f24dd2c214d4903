import QtQuick 2.12
import "."

// The title of a column of the input page.
PanelText {
    width: 100
    color: Look.title
    font.bold: true
}
