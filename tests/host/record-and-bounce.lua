-- First Ardour session of the host proof, run by ardour7-lua (headless, Dummy audio backend):
-- creates a session with one stereo track, inserts the plug-in, sets its parameters through Ardour,
-- records a pink-noise take from the Dummy backend, plays it through the plug-in in real time onto a second
-- track, bounces it offline through the plug-in and saves the session.
--
-- arg[1] session folder (must not exist), arg[2] the plug-in's unique id (decimal, or an LV2 URI; a VST3 plug-in's
-- name), arg[3] seconds to record, arg[4..] NAME=VALUE parameters.
-- Lines starting with "PROOF" are read by ardour-proof.sh; any failure raises a Lua error (exit code 1).

local session_dir, unique_id, seconds = arg[1], arg[2], tonumber(arg[3])
local rate = 48000
local wait_limit_us = 60 * 1000 * 1000

local function wait_for(what, condition)
	local started = ARDOUR.LuaAPI.monotonic_time()
	while not condition() do
		if ARDOUR.LuaAPI.monotonic_time() - started > wait_limit_us then
			error("timed out waiting for " .. what)
		end
		sleep(0.02)
	end
end

-- The Dummy backend's inputs are signal generators; pink noise is different on each channel.
assert(AudioEngine:set_backend("None (Dummy)", "", ""), "Ardour's Dummy audio backend is missing")
assert(AudioEngine:set_device_name("Pink Noise") == 0, "the Dummy backend has no pink-noise input")
assert(create_session(session_dir, "proof", rate), "cannot create the session")

-- A VST 2.4 plug-in is found by its decimal id, an LV2 plug-in by its URI, a VST3 plug-in by its name.
local found = nil
for info in ARDOUR.LuaAPI.list_plugins():iter() do
	if ((info.type == ARDOUR.PluginType.LXVST or info.type == ARDOUR.PluginType.LV2)
		and info.unique_id == unique_id) or (info.type == ARDOUR.PluginType.VST3 and info.name == unique_id) then
		found = info
	end
end
assert(found, "Ardour's plug-in list has no plug-in with id " .. unique_id)
print(string.format("PROOF listed name=%s creator=%s path=%s", found.name, found.creator, found.path))

-- Ardour connects a new track's inputs in a thread of its own, at a time of its choosing; the proof
-- patches every track itself instead.
ARDOUR.config():set_input_auto_connect(ARDOUR.AutoConnectOption.ManualConnect)
local function patch(inputs, sources)
	for c = 0, 1 do
		assert(inputs:audio(c):connect(sources[c + 1]) == 0, "cannot connect " .. sources[c + 1])
		assert(inputs:audio(c):connected_to(sources[c + 1]), "not connected to " .. sources[c + 1])
	end
end

local track = Session:new_audio_track(2, 2, nil, 1, "Track", ARDOUR.PresentationInfo.max_order,
	ARDOUR.TrackMode.Normal, true):front()
assert(track and not track:isnil(), "cannot add a stereo track")
local physical = C.StringVector()
AudioEngine:get_physical_inputs(ARDOUR.DataType("audio"), physical, 0, 0)
assert(physical:size() >= 2, "the Dummy backend offers no stereo input")
patch(track:input(), {physical:at(0), physical:at(1)})
local proc = ARDOUR.LuaAPI.new_plugin(Session, unique_id, found.type, "")
assert(not proc:isnil(), "Ardour cannot instantiate the plug-in")
assert(track:add_processor_by_index(proc, 0, nil, true) == 0, "cannot insert the plug-in on the track")

local insert = proc:to_insert()
local plugin = insert:plugin(0)
print(string.format("PROOF instance name=%s maker=%s parameters=%d inputs=%d outputs=%d latency=%d",
	plugin:name(), plugin:maker(), plugin:parameter_count(), insert:natural_input_streams():n_audio(),
	insert:natural_output_streams():n_audio(), insert:signal_latency()))

-- Ardour sets and reads parameters by their number among the control ports (all of a VST 2.4 plug-in's
-- parameters; an LV2 plug-in also has audio and event ports): inputs[n] is the port of control n.
local index_of, inputs, controls = {}, {}, 0
for port = 0, plugin:parameter_count() - 1 do
	if plugin:parameter_is_control(port) then
		if plugin:parameter_is_input(port) then
			local _, d = plugin:get_parameter_descriptor(port, ARDOUR.ParameterDescriptor())
			print(string.format("PROOF parameter %d %s range=%g..%g default=%g", controls,
				plugin:parameter_label(port), d[2].lower, d[2].upper, d[2].normal))
			index_of[plugin:parameter_label(port)] = controls
			inputs[#inputs + 1] = {controls, port}
		end
		controls = controls + 1
	end
end

for a = 4, #arg do
	local name, value = arg[a]:match("^(.+)=([^=]+)$")
	local i = index_of[name]
	assert(i, "the plug-in has no parameter " .. tostring(name))
	assert(ARDOUR.LuaAPI.set_processor_param(proc, i, tonumber(value)), "Ardour refused " .. arg[a])
end
for _, input in ipairs(inputs) do
	print(string.format("PROOF set %d %s %.9g", input[1], plugin:parameter_label(input[2]),
		ARDOUR.LuaAPI.get_processor_param(proc, input[1])))
end

-- Record: the take is what reaches the plug-in (captured before it), so it is the reference input.
track:rec_enable_control():set_value(1, PBD.GroupControlDisposition.NoGroup)
Session:maybe_enable_record(false)
Session:request_roll(ARDOUR.TransportRequestSource.TRS_UI)
wait_for("the transport to record", function() return Session:transport_sample() >= seconds * rate end)
Session:request_stop(false, false, ARDOUR.TransportRequestSource.TRS_UI)
wait_for("the transport to stop", function() return Session:transport_stopped() end)
track:rec_enable_control():set_value(0, PBD.GroupControlDisposition.NoGroup)
Session:disable_record(false, false)
wait_for("the recorded region", function() return track:playlist():n_regions() == 1 end)

-- Nothing but the take may reach the plug-in from now on, and the take must reach it unchanged:
-- no live input, no region fades (Ardour gives new regions 64-sample fades).
track:input():disconnect_all(nil)
local region = nil
for r in track:playlist():region_list():iter() do region = r:to_audioregion() end
region:set_fade_in_active(false)
region:set_fade_out_active(false)
for c = 0, region:n_channels() - 1 do
	print(string.format("PROOF take %d %s", c, region:source(c):to_filesource():path()))
end
local first, last = region:position():samples(), region:position():samples() + region:length():samples()
print(string.format("PROOF region start=%d length=%d", first, last - first))

-- Real time: play the take while a second track records what leaves the first one, so the plug-in runs
-- in Ardour's audio thread, on values it has been gliding to since they were set.
local printer = Session:new_audio_track(2, 2, nil, 1, "Print", ARDOUR.PresentationInfo.max_order,
	ARDOUR.TrackMode.Normal, true):front()
patch(printer:input(), {track:output():audio(0):name(), track:output():audio(1):name()})
Session:request_locate(first, false, ARDOUR.LocateTransportDisposition.MustStop,
	ARDOUR.TransportRequestSource.TRS_UI)
wait_for("the transport to locate", function() return Session:transport_sample() == first end)
printer:rec_enable_control():set_value(1, PBD.GroupControlDisposition.NoGroup)
Session:maybe_enable_record(false)
Session:request_roll(ARDOUR.TransportRequestSource.TRS_UI)
wait_for("the take to play", function() return Session:transport_sample() >= last + rate / 4 end)
Session:request_stop(false, false, ARDOUR.TransportRequestSource.TRS_UI)
wait_for("the transport to stop", function() return Session:transport_stopped() end)
printer:rec_enable_control():set_value(0, PBD.GroupControlDisposition.NoGroup)
Session:disable_record(false, false)
wait_for("the printed region", function() return printer:playlist():n_regions() == 1 end)
local printed = nil
for r in printer:playlist():region_list():iter() do printed = r:to_audioregion() end
for c = 0, printed:n_channels() - 1 do
	print(string.format("PROOF printed %d %s", c, printed:source(c):to_filesource():path()))
end
print(string.format("PROOF printed-at %d", printed:position():samples() - first))

-- Ardour's bounce renders the take offline through the track's processors up to and including the
-- plug-in, into new files of the session: the plug-in's output before fader and panner. Ardour gives
-- the plug-in the bounce's block size first (off, block size, on), so it starts anew on the values set.
-- (Ardour 7.3's export of the master bus, driven from Lua, corrupts its heap in about one run in five,
-- with or without a plug-in, so the proof does not use it.)
local bounced = track:bounce_range(first, last, ARDOUR.InterThreadInfo(), proc, true, "bounced", false)
assert(bounced and not bounced:isnil(), "Ardour could not bounce the take through the plug-in")
bounced = bounced:to_audioregion()
for c = 0, bounced:n_channels() - 1 do
	print(string.format("PROOF bounced %d %s", c, bounced:source(c):to_filesource():path()))
end

-- The plug-in's own outputs (the balance meter) as the bounce left them, numbered among the controls.
local control = 0
for port = 0, plugin:parameter_count() - 1 do
	if plugin:parameter_is_control(port) then
		if plugin:parameter_is_output(port) then
			print(string.format("PROOF output %s %.9g", plugin:parameter_label(port),
				ARDOUR.LuaAPI.get_plugin_insert_param(insert, control)))
		end
		control = control + 1
	end
end

assert(Session:save_state("", false, false, false, false, false) == 0, "cannot save the session")
print("PROOF saved")
