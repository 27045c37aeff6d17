# Sources that are compiled as one read their headers once: half the time of a compiler, an eighth of that of the static
# analysis. The presets asan, fuzz and tidy do so; release and debug compile each source by itself, so that each has to
# include what it uses.
# quillon_rooms(TARGET): where CMAKE_UNITY_BUILD is on, the target's sources of one folder are compiled as one.
function(quillon_rooms target)
    get_target_property(sources ${target} SOURCES)
    foreach(source IN LISTS sources)
        if(source MATCHES "^([a-z]+)/.*\\.cpp$")
            set_property(SOURCE ${source} PROPERTY UNITY_GROUP ${CMAKE_MATCH_1})
        endif()
    endforeach()
    set_target_properties(${target} PROPERTIES UNITY_BUILD_MODE GROUP)
endfunction()
