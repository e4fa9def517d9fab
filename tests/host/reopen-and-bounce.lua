-- Second Ardour session of the host proof, run by ardour7-lua: reopens the saved session (Ardour gives the
-- plug-in its chunk back), reports the parameter values Ardour finds, bounces the take through the
-- reopened plug-in and saves the session again as a new snapshot.
--
-- arg[1] session folder, arg[2] the plug-in's unique id (decimal, or an LV2 URI; a VST3 plug-in's name), arg[3] name
-- of the bounce and the snapshot.
-- Lines starting with "PROOF" are read by ardour-proof.sh; any failure raises a Lua error (exit code 1).

local session_dir, unique_id, name = arg[1], arg[2], arg[3]

assert(AudioEngine:set_backend("None (Dummy)", "", ""), "Ardour's Dummy audio backend is missing")
assert(AudioEngine:set_device_name("Silence") == 0, "the Dummy backend has no silent input")
assert(load_session(session_dir, "proof"), "cannot reopen the session")

local track = Session:route_by_name("Track")
assert(track and not track:isnil(), "the reopened session has no track \"Track\"")
local proc = track:nth_plugin(0)
assert(not proc:isnil(), "the reopened track has no plug-in")
local plugin = proc:to_insert():plugin(0)
assert(plugin:unique_id() == unique_id or plugin:name() == unique_id, "the track's first plug-in is " .. plugin:name())
assert(proc:active(), "Ardour reopened the plug-in switched off")
-- Numbered among the control ports, as Ardour numbers parameters; only the inputs are reported.
local control = 0
for port = 0, plugin:parameter_count() - 1 do
	if plugin:parameter_is_control(port) then
		if plugin:parameter_is_input(port) then
			print(string.format("PROOF reopened %d %s %.9g", control, plugin:parameter_label(port),
				ARDOUR.LuaAPI.get_processor_param(proc, control)))
		end
		control = control + 1
	end
end

local regions = {}
for r in track:to_track():playlist():region_list():iter() do regions[#regions + 1] = r end
assert(#regions == 1, "the reopened track holds " .. #regions .. " regions, expected 1")
local first = regions[1]:position():samples()
local last = first + regions[1]:length():samples()
local bounced = track:to_track():bounce_range(first, last, ARDOUR.InterThreadInfo(), proc, true, name, false)
assert(bounced and not bounced:isnil(), "Ardour could not bounce the take through the reopened plug-in")
bounced = bounced:to_audioregion()
for c = 0, bounced:n_channels() - 1 do
	print(string.format("PROOF bounced %d %s", c, bounced:source(c):to_filesource():path()))
end

assert(Session:save_state(name, false, false, false, false, false) == 0, "cannot save the snapshot")
print("PROOF saved " .. name)
