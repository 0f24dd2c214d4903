import QtQuick 2.12

// The ground of one row of a page, 1110 x 74. Children are placed in the row's own columns: fold 12,
// title 48, slider 238, switch 298, steps 624, value 746, reset 20 from the right end.
Image {
    width: 1110
    height: 74
    source: "qrc:/img/pc/img_bg_input_line.png"
}
