# The packages that building takes: the library and the tool, and the window; sourced by the other scripts.
build_packages=(g++ cmake ninja-build libexpat1-dev libcli11-dev nlohmann-json3-dev)
window_packages=(qt6-base-dev qt6-svg-dev)
