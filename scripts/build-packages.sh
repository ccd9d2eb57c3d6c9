# The packages that building the library and the tool takes; sourced by the other scripts.
build_packages=(g++ cmake ninja-build libexpat1-dev libcli11-dev nlohmann-json3-dev)
