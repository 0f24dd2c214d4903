import QtQuick 2.12

// What the unit can put out. The text of the last row is the one that operators know.
ListModel {
    ListElement { modelData: "1080i50"; value: 6 } ListElement { modelData: "1080i59.94"; value: 7 }
    ListElement { modelData: "1080i60"; value: 8 } ListElement { modelData: "1080p23.98"; value: 9 }
    ListElement { modelData: "1080p24"; value: 10 } ListElement { modelData: "1080p25"; value: 11 }
    ListElement { modelData: "1080p29.97"; value: 12 } ListElement { modelData: "1080p30"; value: 13 }
    ListElement { modelData: "1080p50"; value: 14 } ListElement { modelData: "1080p59.94"; value: 15 }
    ListElement { modelData: "1080p60"; value: 16 } ListElement { modelData: "2160p23.98"; value: 17 }
    ListElement { modelData: "2160p24"; value: 18 } ListElement { modelData: "2160p25"; value: 19 }
    ListElement { modelData: "2160p29.97"; value: 20 } ListElement { modelData: "2160p30"; value: 21 }
    ListElement { modelData: "2160p50"; value: 22 } ListElement { modelData: "2160p59.94"; value: 23 }
    ListElement { modelData: "2160pP60"; value: 24 }
}
