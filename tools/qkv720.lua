-- Wireshark dissector for the QKV-720: the control protocol over TCP 5002 and discovery over UDP 5002.
--
--   wireshark -X lua_script:tools/qkv720.lua capture.pcapng
--   tshark -X lua_script:tools/qkv720.lua -r capture.pcapng -Y qkv720
--
-- or copy it into the folder that Help > About Wireshark > Folders calls "Personal Lua Plugins". The names are those
-- of docs/protocol.md; every field is a display filter, such as qkv720.levels.black > 300 or qkv720.refused.

local PORT = 5002

-- Records: name, width in bytes, kind. A width of 2 is sent low byte first.
--   "signed"   two's complement        "flags"    one bit each, named
--   a table    values by name
local OFF_ON = { [0] = "off", [1] = "on" }
local STANDARDS = { [0] = "None", "PAL", "NTSC", "720p50", "720p59.94", "720p60", "1080i50", "1080i59.94", "1080i60",
    "1080p23.98", "1080p24", "1080p25", "1080p29.97", "1080p30", "1080p50", "1080p59.94", "1080p60", "2160p23.98",
    "2160p24", "2160p25", "2160p29.97", "2160p30", "2160p50", "2160p59.94", "2160p60", "2160wp23.98", "2160wp24",
    "2160wp25", "2160wp29.97", "2160wp30", "2160wp50", "2160wp59.94", "2160wp60" }
local INPUTS = { [0] = "SDI", "HDMI 1", "HDMI 2", "HDMI 3", "external sync" }
local SOURCES = { [1] = "FG", [2] = "BG", [3] = "AUX", [4] = "Matte", [5] = "PFG", [6] = "Comp" }
local OUTPUT_BITS = { "PGM", "PVW", "PGM HDMI", "PVW HDMI" }

local STAGE = { { "enable", 1, OFF_ON }, { "level", 2 }, { "density", 2 }, { "balance", 1 } }
local WINDOW = { { "enable", 1, OFF_ON }, { "invert", 1, OFF_ON }, { "left", 2 }, { "right", 2 }, { "top", 2 },
    { "bottom", 2 }, { "border", 1 } }

local FUNCTIONS = {
    [0x50] = { "BACK_COLOUR", { { "red", 2 }, { "green", 2 }, { "blue", 2 },
        { "auto", 1, { [0] = "none", "automatic, default", "automatic, background" } } } },
    [0x51] = { "ANGLE", { { "left", 1 }, { "right", 1 } } },
    [0x52] = { "LEVELS", { { "black", 2 }, { "white", 2 }, { "matte", 1, OFF_ON } } },
    [0x53] = { "DARK", STAGE },
    [0x54] = { "BRIGHT", STAGE },
    [0x55] = { "SHADOW", { { "enable", 1, OFF_ON }, { "level", 2 } } },
    [0x56] = { "SPILL", { { "suppression", 2 }, { "enhance", 2 }, { "balance", 2 }, { "brightness", 2 },
        { "vivid", 1, OFF_ON }, { "preset", 1 } } },
    [0x57] = { "EDGE_FIX", { { "enable", 1, OFF_ON }, { "left", 1 }, { "right", 1 }, { "soft", 1 } } },
    [0x58] = { "POST_AMPLIFIER", { { "enable", 1, OFF_ON }, { "bright", 2 }, { "contrast", 2 }, { "saturation", 2 },
        { "hue", 2, "signed" } } },
    [0x59] = { "RGB_CORRECTOR", { { "enable", 1, OFF_ON }, { "redWhite", 2 }, { "redBlack", 2 }, { "greenWhite", 2 },
        { "greenBlack", 2 }, { "blueWhite", 2 }, { "blueBlack", 2 } } },
    [0x5A] = { "GARBAGE_MASK", WINDOW },
    -- Aux mode travels under the same code, as the first two bytes.
    [0x5B] = { "BACKGROUND_BLUR", { { "enable", 1 }, { "level", 1 }, { "time", 1 } } },
    [0x5C] = { "LUMA_KEY", { { "enable", 1, OFF_ON }, { "mode", 1, { [0] = "black", "white" } }, { "cutOff", 2 },
        { "softness", 2 }, { "layerSwap", 1, OFF_ON }, { "swapTime", 1 }, { "opacity", 2 } } },
    [0x5D] = { "CURSOR", { { "control", 1, { [0] = "away", [3] = "place and sample" } }, { "x", 2 }, { "y", 2 },
        { "red", 2 }, { "green", 2 }, { "blue", 2 } } },
    [0x5F] = { "HOLDOUT_WINDOW", WINDOW },
    [0x60] = { "OUTPUT_STANDARD", { { "standard", 1, STANDARDS },
        { "colour", 1, { [0] = "RGB444", "YUV444", "YUV422" } },
        { "mode", 1, { [0] = "fixed", "automatic", "reserved" } } } },
    [0x61] = { "INPUT_SELECTION", { { "fg", 1, INPUTS }, { "bg", 1, INPUTS }, { "aux", 1, INPUTS },
        { "freeze", 1, "flags", { "FG", "BG", "AUX" } }, { "genlock", 1, { [0] = "off", "external sync" } },
        { "h", 2, "signed" }, { "v", 2, "signed" } } },
    [0x62] = { "INPUT_STANDARD", { { "fg", 1, STANDARDS }, { "bg", 1, STANDARDS }, { "aux", 1, STANDARDS },
        { "sync", 1, STANDARDS }, { "genlockStatus", 1 } } },
    [0x63] = { "OUTPUT_ROUTING", { { "pgm", 1, SOURCES }, { "pvw", 1, SOURCES }, { "pgmHdmi", 1, SOURCES },
        { "pvwHdmi", 1, SOURCES }, { "lock", 1, "flags", OUTPUT_BITS }, { "mirror", 1, "flags", OUTPUT_BITS } } },
    [0x64] = { "MEMORY", { { "index", 1 } } },
    [0x65] = { "SAVE_SETUP", {} },
    [0x6C] = { "VERSION", { { "firmwareMajor", 1, "hex" }, { "firmwareMinor", 1, "hex" }, { "fpgaMajor", 1, "hex" },
        { "fpgaMinor", 1, "hex" }, { "loaderMajor", 1, "hex" }, { "loaderMinor", 1, "hex" } } },
    [0x6F] = { "DEVICE_TYPE", { { "type", 1, "hex" }, { "revision", 1, { [0] = "A", "B" } } } },
}
local REFUSALS = { [0x81] = "command not supported", [0x82] = "checksum of the frame was wrong" }

-- Discovery: keyword, whether a MAC address stands before it, and what follows it.
local DATAGRAMS = {
    [0x00] = { "ETH_REQ" },
    [0x01] = { "FWVER_REQ" },
    [0x02] = { "SET_DHCPMODE", mac = true, data = { { "dhcp", 1 } } },
    [0x03] = { "SET_IPADR", mac = true, data = { { "ip", 4 }, { "gateway", 4 } } },
    [0x04] = { "RESET", mac = true },
    [0x09] = { "SET_DHCPNAME", data = { { "name", 16 } } },
    [0x0A] = { "SET_MACADR", data = { { "newmac", 6 } } },
    [0x0B] = { "SET_NETMASK", data = { { "mask", 4 } } },
    [0x0C] = { "SET_GATEWAY", data = { { "gateway", 4 } } },
    [0x0D] = { "SET_PRIDNS", data = { { "primarydns", 4 } } },
    [0x0E] = { "SET_SECDNS", data = { { "secondarydns", 4 } } },
    [0x40] = { "GET_MODEL", mac = true },
    [0x41] = { "GET_MODEL_NAME", mac = true },
}
local ACKNOWLEDGED = { [0x06] = "ACK", [0x15] = "NACK" }

-- ---------------------------------------------------------------------------------------------------- control

local control = Proto("qkv720", "QKV-720 control")
local f = {
    length = ProtoField.uint16("qkv720.length", "Frame length"),
    body = ProtoField.uint8("qkv720.body", "Body length"),
    ext = ProtoField.uint8("qkv720.ext", "Ext", base.HEX, { [0x00] = "none", [0x80] = "restore the defaults" }),
    status = ProtoField.uint8("qkv720.status", "Status", base.HEX, { [0x00] = "good", [0x81] = REFUSALS[0x81], [0x82] = REFUSALS[0x82] }),
    code = ProtoField.uint8("qkv720.code", "Code", base.HEX),
    command = ProtoField.string("qkv720.command", "Command"),
    checksum = ProtoField.uint8("qkv720.checksum", "Checksum", base.HEX),
    data = ProtoField.bytes("qkv720.data", "Data"),
    refused = ProtoField.string("qkv720.refused", "Refused"),
}
local e = {
    checksum = ProtoExpert.new("qkv720.checksum.bad", "The checksum is wrong", expert.group.CHECKSUM,
        expert.severity.ERROR),
    refused = ProtoExpert.new("qkv720.refusal", "The unit refused the frame", expert.group.RESPONSE_CODE,
        expert.severity.WARN),
    length = ProtoExpert.new("qkv720.length.bad", "The lengths of the frame contradict each other",
        expert.group.MALFORMED, expert.severity.ERROR),
    unknown = ProtoExpert.new("qkv720.code.unknown", "No command has this code", expert.group.UNDECODED,
        expert.severity.WARN),
}

-- One display filter for every field of every function: qkv720.levels.black, qkv720.dark.level ...
local fields = {}
for _, field in pairs(f) do fields[#fields + 1] = field end
for code, entry in pairs(FUNCTIONS) do
    local made = {}
    for place, field in ipairs(entry[2]) do
        local name, width, kind = field[1], field[2], field[3]
        local filter = "qkv720." .. entry[1]:lower() .. "." .. name
        local values = type(kind) == "table" and kind or nil
        if kind == "signed" then
            made[place] = ProtoField.int16(filter, name)
        elseif width == 2 then
            made[place] = ProtoField.uint16(filter, name)
        else
            made[place] = ProtoField.uint8(filter, name, (kind == "hex" or kind == "flags") and base.HEX or base.DEC,
                values)
        end
        fields[#fields + 1] = made[place]
    end
    FUNCTIONS[code].fields = made
end
control.fields = fields
control.experts = { e.checksum, e.refused, e.length, e.unknown }

local function flags(value, names)
    local set = {}
    for bit_number, name in ipairs(names) do
        if math.floor(value / 2 ^ (bit_number - 1)) % 2 == 1 then set[#set + 1] = name end
    end
    return #set > 0 and table.concat(set, ", ") or "none"
end

-- Adds the fields of a record, as many as are there, to the tree; what they say in short.
local function dissect_record(data, entry, tree)
    local at, words = 0, {}
    for place, field in ipairs(entry[2]) do
        local name, width, kind = field[1], field[2], field[3]
        if at + width > data:len() then break end
        local range = data(at, width)
        local value = width == 1 and range:uint() or (kind == "signed" and range:le_int() or range:le_uint())
        local item = tree:add_le(entry.fields[place], range)
        local text = tostring(value)
        if kind == "flags" then
            text = flags(value, field[4])
            item:append_text(" (" .. text .. ")")
        elseif kind == "hex" then
            text = string.format("%x", value)
        elseif type(kind) == "table" and kind[value] then
            text = kind[value]
        end
        words[#words + 1] = name .. "=" .. text
        at = at + width
    end
    if at < data:len() then tree:add(f.data, data(at)) end
    return table.concat(words, " ")
end

local function sum_of(range)
    local sum = 0
    for i = 0, range:len() - 1 do sum = sum + range(i, 1):uint() end
    return sum % 256
end

-- The data of a body, told apart by direction: what a get asks, a reset restores and a refusal says are no records.
local function dissect_data(data, entry, base_code, is_set, ext, to_unit, tree)
    if data:len() == 0 then return "" end
    if to_unit and ext == 0x80 then
        -- The spill reset names its preset in its last byte; all others are filled with zeros.
        if base_code == 0x56 and data:len() == 10 then
            tree:add_le(entry.fields[6], data(9, 1))
            return "preset=" .. data(9, 1):uint()
        end
        tree:add(f.data, data):append_text(" (filler)")
        return ""
    end
    if base_code == 0x5D and to_unit then
        -- A request carries where, a reply where and what was seen.
        return dissect_record(data(0, math.min(5, data:len())), entry, tree)
    end
    if not to_unit and is_set and base_code == 0x64 then
        tree:add(f.data, data)
        return ""
    end
    return dissect_record(data, entry, tree)
end

-- One body, from its length byte on; how many bytes it took.
local function dissect_body(buffer, to_unit, tree, said)
    local body_length = buffer(0, 1):uint()
    local whole = body_length + 1
    if body_length < 2 or whole > buffer:len() then
        tree:add_proto_expert_info(e.length)
        tree:add(f.data, buffer)
        said[#said + 1] = "broken body"
        return buffer:len()
    end
    local status, code = buffer(1, 1):uint(), buffer(2, 1):uint()
    local is_set = code >= 0x80
    local base_code = is_set and code - 0x80 or code
    local entry = FUNCTIONS[base_code]
    local verb = is_set and ((to_unit and status == 0x80) and "RESET_" or "SET_") or "GET_"
    if base_code == 0x65 then verb = "" end
    local name = entry and (verb .. entry[1]) or string.format("0x%02X", code)
    local subtree = tree:add(control, buffer(0, whole), name)
    subtree:add(f.body, buffer(0, 1))
    local refusal = not to_unit and REFUSALS[status]
    subtree:add(to_unit and f.ext or f.status, buffer(1, 1))
    subtree:add(f.code, buffer(2, 1))
    subtree:add(f.command, buffer(2, 1), name)
    local words = name
    if refusal then
        subtree:add(f.refused, buffer(1, 1), refusal)
        subtree:add_proto_expert_info(e.refused)
        said[#said + 1] = name .. " refused: " .. refusal
        return whole
    end
    if not entry then subtree:add_proto_expert_info(e.unknown) end
    if whole > 4 then
        local data = buffer(3, whole - 4)
        if entry then
            local text = dissect_data(data, entry, base_code, is_set, status, to_unit, subtree)
            if text ~= "" then words = words .. " " .. text end
        else
            subtree:add(f.data, data)
        end
    end
    if whole >= 4 then
        local item = subtree:add(f.checksum, buffer(whole - 1, 1))
        if sum_of(buffer(0, whole - 1)) ~= buffer(whole - 1, 1):uint() then
            item:add_proto_expert_info(e.checksum)
            words = words .. " [checksum]"
        end
    end
    subtree:append_text(words:sub(#name + 1))
    said[#said + 1] = words
    return whole
end

local function frame_length(buffer, _, offset)
    return math.max(buffer(offset, 2):uint(), 2)
end

local function dissect_frame(buffer, pinfo, tree)
    local to_unit = pinfo.dst_port == PORT
    pinfo.cols.protocol = "QKV-720"
    local subtree = tree:add(control, buffer(), "QKV-720 control, " .. (to_unit and "request" or "reply"))
    subtree:add(f.length, buffer(0, 2))
    local said, at = {}, 2
    -- The automatic key answers with a chain of bodies in one frame.
    while at < buffer:len() do
        at = at + dissect_body(buffer(at):tvb(), to_unit, subtree, said)
    end
    local more = #said > 1 and string.format(" (and %d more)", #said - 1) or ""
    pinfo.cols.info = (to_unit and "-> " or "<- ") .. (said[1] or "empty frame") .. more
    return buffer:len()
end

function control.dissector(buffer, pinfo, tree)
    dissect_tcp_pdus(buffer, tree, 2, frame_length, dissect_frame)
    return buffer:len()
end

-- --------------------------------------------------------------------------------------------------- discovery

local discovery = Proto("qkv720_discovery", "QKV-720 discovery")
local d = {
    length = ProtoField.uint16("qkv720_discovery.length", "Length"),
    kind = ProtoField.uint8("qkv720_discovery.type", "Type", base.HEX,
        { [0x80] = "to all units", [0x81] = "to one unit" }),
    code = ProtoField.uint8("qkv720_discovery.code", "Code", base.HEX),
    command = ProtoField.string("qkv720_discovery.command", "Command"),
    keyword = ProtoField.string("qkv720_discovery.keyword", "Keyword"),
    acknowledged = ProtoField.uint8("qkv720_discovery.acknowledged", "Answer", base.HEX, ACKNOWLEDGED),
    mac = ProtoField.ether("qkv720_discovery.mac", "MAC address"),
    newmac = ProtoField.ether("qkv720_discovery.newmac", "New MAC address"),
    dhcp = ProtoField.bool("qkv720_discovery.dhcp", "DHCP"),
    name = ProtoField.stringz("qkv720_discovery.name", "Host name"),
    ip = ProtoField.ipv4("qkv720_discovery.ip", "IP address"),
    mask = ProtoField.ipv4("qkv720_discovery.mask", "Netmask"),
    gateway = ProtoField.ipv4("qkv720_discovery.gateway", "Gateway"),
    primarydns = ProtoField.ipv4("qkv720_discovery.primarydns", "Primary DNS"),
    secondarydns = ProtoField.ipv4("qkv720_discovery.secondarydns", "Secondary DNS"),
    vendor = ProtoField.uint16("qkv720_discovery.vendor", "Vendor", base.HEX),
    product = ProtoField.uint16("qkv720_discovery.product", "Product", base.HEX),
    model = ProtoField.stringz("qkv720_discovery.model", "Model name"),
    firmware = ProtoField.bytes("qkv720_discovery.firmware", "Firmware version"),
    data = ProtoField.bytes("qkv720_discovery.data", "Data"),
}
local e_length = ProtoExpert.new("qkv720_discovery.length.bad", "The length field contradicts the datagram",
    expert.group.MALFORMED, expert.severity.WARN)
local discovery_fields = {}
for _, field in pairs(d) do discovery_fields[#discovery_fields + 1] = field end
discovery.fields = discovery_fields
discovery.experts = { e_length }

local RECORD = { { "dhcp", 1 }, { "name", 16 }, { "mac", 6 }, { "ip", 4 }, { "mask", 4 }, { "gateway", 4 },
    { "primarydns", 4 }, { "secondarydns", 4 } }

-- Adds fields one behind the other; the values of those that a line of the list can show.
local function add_all(buffer, at, list, tree)
    local words = {}
    for _, field in ipairs(list) do
        local name, width = field[1], math.min(field[2], buffer:len() - at)
        if width <= 0 then break end
        local range = buffer(at, width)
        tree:add(d[name], range)
        if name == "name" then words[#words + 1] = range:stringz() end
        if width == 4 then words[#words + 1] = name .. "=" .. tostring(range:ipv4()) end
        at = at + width
    end
    if at < buffer:len() then tree:add(d.data, buffer(at)) end
    return table.concat(words, " ")
end

local function dissect_request(buffer, entry, tree)
    local at, words = 4, ""
    if entry.mac and buffer:len() >= 10 then
        tree:add(d.mac, buffer(4, 6))
        words = " " .. tostring(buffer(4, 6):ether())
        at = 10
    end
    local keyword = math.min(#entry[1], buffer:len() - at)
    if keyword > 0 then tree:add(d.keyword, buffer(at, keyword)) end
    at = at + keyword
    if at < buffer:len() then
        local said = add_all(buffer, at, entry.data or {}, tree)
        if said ~= "" then words = words .. " " .. said end
    end
    return words
end

local function dissect_reply(buffer, code, tree)
    local length = buffer:len()
    if length == 5 then
        tree:add(d.acknowledged, buffer(4, 1))
        return " " .. (ACKNOWLEDGED[buffer(4, 1):uint()] or "answer of neither kind")
    elseif code == 0x00 and length >= 47 then
        return " " .. add_all(buffer, 4, RECORD, tree)
    elseif code == 0x40 and length >= 8 then
        tree:add(d.vendor, buffer(4, 2))
        tree:add(d.product, buffer(6, 2))
        return string.format(" vendor=%04X product=%04X", buffer(4, 2):uint(), buffer(6, 2):uint())
    elseif code == 0x41 and length > 4 then
        tree:add(d.model, buffer(4))
        return " " .. buffer(4):stringz()
    elseif code == 0x01 and length > 4 then
        tree:add(d.firmware, buffer(3))
        return ""
    end
    if length > 4 then tree:add(d.data, buffer(4)) end
    return ""
end

function discovery.dissector(buffer, pinfo, tree)
    if buffer:len() < 4 then return 0 end
    local to_unit = pinfo.dst_port == PORT
    local code = buffer(3, 1):uint()
    local entry = DATAGRAMS[code]
    pinfo.cols.protocol = "QKV-720"
    local name = entry and entry[1] or string.format("0x%02X", code)
    local subtree = tree:add(discovery, buffer(), "QKV-720 discovery, " .. (to_unit and "request " or "reply ") .. name)
    local item = subtree:add(d.length, buffer(0, 2))
    if buffer(0, 2):uint() ~= buffer:len() then item:add_proto_expert_info(e_length) end
    subtree:add(d.kind, buffer(2, 1))
    subtree:add(d.code, buffer(3, 1))
    subtree:add(d.command, buffer(3, 1), name)
    local words
    if to_unit then
        words = dissect_request(buffer, entry or { "" }, subtree)
    else
        words = dissect_reply(buffer, code, subtree)
    end
    pinfo.cols.info = (to_unit and "-> " or "<- ") .. name .. words
    return buffer:len()
end

DissectorTable.get("tcp.port"):add(PORT, control)
DissectorTable.get("udp.port"):add(PORT, discovery)
