import QtQuick 2.12

// Takes four numbers from 0 to 255 with dots between them.
RegExpValidator {
    regExp: /^(([01]?[0-9]?[0-9]|2([0-4][0-9]|5[0-5]))\.){3}([01]?[0-9]?[0-9]|2([0-4][0-9]|5[0-5]))$/
}
