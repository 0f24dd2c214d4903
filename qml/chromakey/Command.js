.pragma library

// The groups of the chromakey page: the numbers of commandIndex.
var angle = 1
var levels = 2
var dark = 3
var bright = 4
var shadow = 5
var spill = 6
var edge = 7
