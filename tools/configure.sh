# shellcheck shell=bash
# Sourced by ./run and tools/lanes.sh, not executed, with the root of the project as working directory.

# configure PRESET [OPTION...]: makes the build tree of a preset ready. CMake refuses one that was made while the checkout lay
# elsewhere; such a tree is configured afresh.
configure() {
    local preset=$1 former
    shift
    former=$(sed -n 's/^CMAKE_HOME_DIRECTORY:INTERNAL=//p' "build/$preset/CMakeCache.txt" 2>/dev/null || true)
    [[ -z $former || $former -ef . ]] || set -- --fresh "$@"
    cmake --preset "$preset" "$@"
}

# configure_openwbem PREFIX: makes build/openwbem ready for the OpenWBEM that is installed in PREFIX. The platform is the
# stand-in's, which needs no object manager. Classes that were imported before may have changed since.
configure_openwbem() {
    configure dev && nice cmake --build build/dev --target kv_platform &&
        configure openwbem "-DOPENWBEM_ROOT=$1" \
            "-DKV_PLATFORM_LIBRARIES=$PWD/build/dev/standins/platform/libkvplatform.so" &&
        rm -rf build/openwbem/openwbem-repository
}
