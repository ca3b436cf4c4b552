local sep = package.config:sub(1, 1)
local home = os.getenv("HOME") or os.getenv("USERPROFILE")
local desktop = home .. (sep == "\\" and "\\Desktop" or "/Desktop")
local _, _, num_regions = reaper.CountProjectMarkers(0)
local start_sel, end_sel = reaper.GetSet_LoopTimeRange(false, false, 0, 0, false)

-- Where the host keeps its render presets.
local reaper_ini_path
if sep == "\\" then
    reaper_ini_path = os.getenv("APPDATA") .. "\\REAPER\\reaper-render.ini"
elseif reaper.GetOS():find("Mac") then
    reaper_ini_path = home .. "/Library/Application Support/REAPER/reaper-render.ini"
else
    reaper_ini_path = home .. "/.config/REAPER/reaper-render.ini"
end

local content = ""
local read = pcall(function()
    local f = io.open(reaper_ini_path, "r")
    if f then
        content = assert(f:read("*all"))
        f:close()
    end
end)
if not read then return end

-- Only one preset of ours is kept: an earlier one goes first.
content = content:gsub(
    "<RENDERPRESET VELATURNO_PRE.-\n>%s*\nRENDERPRESET_EXT VELATURNO_PRE.-\nRENDERPRESET_OUTPUT VELATURNO_PRE.-\n", "")

local pattern = num_regions > 0 and "$region" or proj_name

for _, name in ipairs({"RENDER_SETTINGS", "RENDER_TAILFLAG", "RENDER_TAILMS", "RENDER_ADDTOPROJ", "RENDER_DITHER"}) do
    reaper.GetSetProjectInfo(0, name, 0, true)
end

local format_mp3 = "bDNwbUABAAAAAAAACgAAAP////8EAAAAQAEAAAAAAAA="
local format_wav = "ZXZhdxgAAQ=="
local preset = string.format(
    "<RENDERPRESET VELATURNO_PRE 48000 2 0 1 9 0 0\n" ..
    "  " .. format_mp3 .. "\n" ..
    ">\n" ..
    "<RENDERPRESET2 VELATURNO_PRE\n" ..
    "  " .. format_wav .. "\n" ..
    ">\n" ..
    "RENDERPRESET_EXT VELATURNO_PRE 0 0 0 0 0 1 1 0 0 0 0\n" ..
    "RENDERPRESET_OUTPUT VELATURNO_PRE 1 0 124.128 0 0 %s 0 \"%s\" 1000 0 \"\" 0\n", pattern, desktop)
content = content .. "\n" .. preset

for try = 1, 3 do
    local written = false
    pcall(function()
        local f = io.open(reaper_ini_path, "w")
        assert(f:write(content))
        assert(f:close())
        written = true
    end)
    if written then break end
    if try < 3 and reaper.sleep then reaper.sleep(0.1) end
end

reaper.GetSetProjectInfo_String(0, "RENDER_FORMAT", format_mp3, true)
reaper.GetSetProjectInfo_String(0, "RENDER_FORMAT2", format_wav, true)
reaper.GetSetProjectInfo(0, "RENDER_SRATE", 48000, true)
reaper.GetSetProjectInfo(0, "RENDER_CHANNELS", 2, true)
reaper.GetSetProjectInfo(0, "RENDER_RESAMPLEMODE", 9, true)
reaper.GetSetProjectInfo_String(0, "RENDER_FILE", desktop, true)

if num_regions > 0 then
    reaper.GetSetProjectInfo(0, "RENDER_BOUNDSFLAG", 3, true)
    reaper.GetSetProjectInfo_String(0, "RENDER_PATTERN", "$region", true)
elseif end_sel > start_sel then
    reaper.GetSetProjectInfo(0, "RENDER_BOUNDSFLAG", 1, true)
    reaper.GetSetProjectInfo_String(0, "RENDER_PATTERN", proj_name, true)
else
    local start_pos, end_pos = math.huge, 0
    for i = 0, reaper.CountMediaItems(0) - 1 do
        local item = reaper.GetMediaItem(0, i)
        local position = reaper.GetMediaItemInfo_Value(item, "D_POSITION")
        local length = reaper.GetMediaItemInfo_Value(item, "D_LENGTH")
        start_pos = math.min(start_pos, position)
        end_pos = math.max(end_pos, position + length)
    end
    reaper.GetSet_LoopTimeRange(true, false, start_pos, end_pos, false)
    reaper.GetSetProjectInfo(0, "RENDER_BOUNDSFLAG", 1, true)
    reaper.GetSetProjectInfo_String(0, "RENDER_PATTERN", proj_name, true)
end

reaper.Main_OnCommand(41824, 0)
reaper.ShowMessageBox("Exportacao concluida!\n\nArquivo salvo em:\n" .. desktop, "Quilmo - Concluido", 0)
