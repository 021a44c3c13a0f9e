# build.sh PRESET TARGET... - read by a step: builds what it needs.
cmake --preset "$1" -DBUILD_TESTING=ON >/dev/null
cmake --build --preset "$1" -j "$(nproc)" --target "${@:2}" | tail -n 1
