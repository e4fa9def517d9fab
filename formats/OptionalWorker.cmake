# Run as cmake -DTTL=<the bundle's Spatara.ttl> -P OptionalWorker.cmake after the framework's generator:
# moves the host's worker from the required features to the optional ones (see Lv2Entry.cpp for why the
# edition does without it). A description that does not read as expected stops the build rather than
# shipping a bundle that refuses hosts without a worker.
set(WORKER "<http://lv2plug.in/ns/ext/worker#schedule>")
file(READ "${TTL}" text)
set(required_before "<http://lv2plug.in/ns/ext/urid#map> ,\n                        ${WORKER} ;")
set(optional_before "<http://lv2plug.in/ns/ext/buf-size#boundedBlockLength> ;")
string(FIND "${text}" "${required_before}" at_required)
string(FIND "${text}" "lv2:optionalFeature" at_optional)
if(at_required EQUAL -1 OR at_optional EQUAL -1)
    message(FATAL_ERROR "${TTL}: the worker is not where the framework used to require it")
endif()
string(REPLACE "${required_before}" "<http://lv2plug.in/ns/ext/urid#map> ;" text "${text}")
string(REPLACE "${optional_before}"
       "<http://lv2plug.in/ns/ext/buf-size#boundedBlockLength> ,\n                        ${WORKER} ;" text
       "${text}")
file(WRITE "${TTL}" "${text}")
