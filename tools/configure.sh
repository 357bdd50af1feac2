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
