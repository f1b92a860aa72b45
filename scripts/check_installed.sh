# The checks of what people get who do not have this repository: what is installed, the packages, and
# the project as a part of another one. Sourced by scripts/check, never run.
# shellcheck shell=bash disable=SC2154

packages_tests=$root/tests/packages
# What is installed, after it was moved to another place.
prefix=$logs/installed
# What the commands of the page make with each compiler.
page_results=$logs/own_

# Each check runs by itself, too.
need_installed() {
    if [[ ! -d $prefix ]]; then install_and_move; fi
}

install_and_move() {
    configure dev
    build dev
    rm -rf "$logs/first_place"
    cmake --install build/dev --prefix "$logs/first_place"
    mv "$logs/first_place" "$prefix"
    figure "$(find "$prefix" -type f | wc -l) files"
}

headers_alone() {
    need_installed
    scripts/check_headers "$prefix/include"
    figure "$(find "$prefix/include" -name '*.h' | wc -l) headers, with g++ and clang++"
}

# configure_afresh SOURCE BUILD [CMAKE_OPTION...]
configure_afresh() {
    rm -rf "$2"
    cmake -S "$1" -B "$2" -G Ninja -D CMAKE_PREFIX_PATH="$prefix" "${@:3}"
}

# consume_with COMPILER [CMAKE_OPTION...]
consume_with() {
    local folder=$logs/consumer
    configure_afresh "$packages_tests/consumer" "$folder" -D CMAKE_CXX_COMPILER="$1" "${@:2}"
    cmake --build "$folder"
    "$folder/consumer"
}

consume() {
    need_installed
    consume_with g++
    consume_with clang++
    figure "four packages found and used, with g++ and clang++"
}

# without_folders NAME FOLDER...: a copy of the tree without these, in $logs/NAME.
without_folders() {
    rm -rf "${logs:?}/$1"
    mkdir -p "$logs/$1"
    git ls-files -z --cached --others --exclude-standard -- "${@:2}" |
        tar -c --null --files-from=- | tar -x -C "$logs/$1"
}

# The platforms from packages, without their folders in the tree: all, and then each alone.
platforms_from_packages() {
    local all=$logs/all_from_packages host=$logs/host_from_package
    need_installed
    all_from_packages
    host_from_package
    graph_from_package
    without_folders without_executor ':!executor'
    configure_afresh "$logs/without_executor" "$logs/executor_from_package" -D BUILD_TESTING=OFF \
        -D TOLVANE_TOOLS=OFF -D TOLVANE_PLATFORM_PACKAGES=TavrikGraph
    cmake --build "$logs/executor_from_package"
    figure "$(cat {"$all","$host"}/tests.[01] | awk '/^\[  PASSED  \]/ { sum += $4 } END { print sum " tests" }')"
}

# configure_quickly SOURCE BUILD [CMAKE_OPTION...]: for what is built once, and run but briefly.
configure_quickly() {
    configure_afresh "$1" "$2" -D CMAKE_BUILD_TYPE=Debug -D CMAKE_CXX_FLAGS_DEBUG=-O0 \
        -D CMAKE_CXX_COMPILER=clang++ -D CMAKE_UNITY_BUILD=ON -D CMAKE_UNITY_BUILD_BATCH_SIZE=12 "${@:3}"
}

# A studio's host cannot be watched.
all_from_packages() {
    local sdk=$logs/sdk there=$logs/beside_sdk
    rm -rf "$sdk" "$there"
    cp -r "$prefix" "$sdk"
    rm -r "$sdk/include/OpenVornik/Testing"
    sed -i '/OBSERVATION/d' "$sdk/lib/cmake/OpenVornik/OpenVornikConfig.cmake"
    without_folders without_platforms ':!graph' ':!host' ':!executor'
    configure_quickly "$logs/without_platforms" "$all" -D CMAKE_PREFIX_PATH="$sdk" \
        -D TOLVANE_PLATFORM_PACKAGES="Pelmor;OpenVornik;TavrikGraph"
    cmake --build "$all"
    run_tests "$all" '*'
    cmake --install "$all" --prefix "$there"
    "$there/bin/tolvane" run --frames 0:9
    cmake --build "$all" --target package
    python3 "$packages_tests/dependencies.py" --without-platforms "$all"/*.deb
}

# With what watches the host, and the tests that do. Left out are sequences of calls that nobody makes,
# and libraries at fault: they are so wherever the platforms are from, and take long.
host_from_package() {
    without_folders without_host ':!host'
    configure_quickly "$logs/without_host" "$host" -D TOLVANE_PLATFORM_PACKAGES=OpenVornik
    cmake --build "$host" --target TolvanePlugin tolvane \
        {attributes,check,convert,faults,model,translation}_tests
    TOLVANE_MODEL_SEQUENCES=200 run_tests "$host" '-Generator.*:*FaultyLibraries*'
}

# Installed as one compiler optimises across sources, and consumed with the other.
graph_from_package() {
    local built=$logs/graph_from_package there=$logs/beside_graph
    rm -rf "$there"
    without_folders without_graph ':!graph'
    configure_afresh "$logs/without_graph" "$built" -D BUILD_TESTING=OFF -D TOLVANE_TOOLS=OFF \
        -D CMAKE_BUILD_TYPE=Release -D CMAKE_INTERPROCEDURAL_OPTIMIZATION=ON \
        -D CMAKE_CXX_COMPILER=clang++ -D TOLVANE_PLATFORM_PACKAGES=Pelmor
    cmake --build "$built"
    cmake --install "$built" --prefix "$there"
    # What is beside the graph library is found before what came along with it.
    consume_with g++ -D CMAKE_PREFIX_PATH="$there;$prefix" -D WITHOUT_PROGRAM=ON
    readelf -d "$logs/consumer/consumer" | grep -q "beside_graph/lib"
}

# Packages of the platforms, each with one thing taken out; and one of the host that has no more than
# what the product needs.
lacking_sdks() {
    need_installed
    python3 "$packages_tests/lacking_sdks.py" "$prefix" "$logs/lacking_sdks"
    figure "$(wc -l <"$logs/lacking_sdks/named") gaps named"
}

subproject() {
    local way folder command built packages
    need_installed
    for way in add_subdirectory FetchContent from_packages; do
        folder=$logs/subproject_$way
        built='libTavrikExecutor.so libPelmor.so libOpenVornik.so' packages=
        if [[ $way == from_packages ]]; then built='' packages='Pelmor;OpenVornik;TavrikGraph'; fi
        configure_afresh "$packages_tests/subproject" "$folder" -D WAY=$way -D TOLVANE="$root" \
            -D TOLVANE_PLATFORM_PACKAGES="$packages" -D CMAKE_EXPORT_COMPILE_COMMANDS=ON
        cmake --build "$folder"
        "$folder/outer"
        cmake --install "$folder" --prefix "$folder/prefix"
        [[ $(cd "$folder/prefix" && find . -type f) == ./bin/outer ]]
        [[ $(find "$folder" -name '*.so' -printf '%P\n' | sort | sed 's,.*/,,' | xargs) == "$built" ]]
        [[ -z $(find "$folder" -name '*.a' -o -name 'tolvane' -type f -o -name '*_tests') ]]
        [[ $(ctest --test-dir "$folder" -N) == *'Total Tests: 0'* ]]
        cmake --build "$folder" --target face
        scripts/check_library "$folder/face.so"
        # The caller's own source is compiled without an option of this project's.
        command=$(grep '"command".*subproject/main.cpp' "$folder/compile_commands.json")
        [[ $command != *' -W'* ]]
    done
    figure "by add_subdirectory, by FetchContent, and with platforms from packages"
}

# Every command of the page, and every mistake that the page says is caught.
own_translation() {
    local compiler face
    need_installed
    for compiler in g++ clang++; do
        run_page "$compiler"
        face=$page_results$compiler/face
        scripts/check_library "$face/build/FaceTranslation.so"
        [[ $(readelf -d "$face/shipped/lib/FaceTranslation.so") != *R*PATH* ]]
    done
    python3 "$packages_tests/mistakes.py" "$packages_tests/mistakes" "$prefix" "$logs/mistakes"
    figure "the page's commands with g++ and clang++, $(wc -l <"$logs/mistakes/caught") mistakes caught"
}

run_page() {
    CXX=$1 PREFIX=$prefix python3 "$packages_tests/run_document.py" \
        docs/own_translation.md "$page_results$1"
}

# The libraries that are fit, as they are installed and as the page has them built, and those that are not.
# Whether other cases find fault with the latter, too, the tests of the checker tell.
tolvane_check() {
    local face=${page_results}g++/face begin seconds
    need_installed
    if [[ ! -d $face ]]; then run_page g++; fi
    begin=$SECONDS
    "$prefix/bin/tolvane" check "$prefix/lib/TolvanePlugin.so" --json >"$logs/plugin.json"
    seconds=$((SECONDS - begin))
    diff - <(not_passed "$logs/plugin.json") <<'END'
failing-hosts/unnoticed-reading warning
failing-hosts/unnoticed-writing warning
failing-hosts/ports warning
threads/sanitizer skipped
END
    "$prefix/bin/tolvane" check "$face/build/FaceTranslation.so" --types "$face/types.json"
    configure dev
    build dev check_tests
    TRY_CASES=meant run_tests build/dev '*Faulty*' check_tests
    figure "the plugin, in $seconds s; a translation of one's own; with faulty ones $(passed_in build/dev)"
}

# The cases that a library did not pass, and what came of them.
not_passed() {
    python3 -c 'import json, sys
for each in json.load(open(sys.argv[1]))["cases"]:
    if each["verdict"] != "passed":
        print(each["name"], each["verdict"])' "$1"
}

# The packages, unpacked into an empty root by the system's own tools, which refuse those that are no
# good together. Their scripts, which need the root of a real system, are not run.
packages() {
    local there=$logs/packages
    rm -rf "$there" build/dev/_CPack_Packages build/dev/*.deb build/dev/*.tar.gz
    mkdir -p "$there"/deb/var/lib/dpkg/{info,triggers,updates} "$there/tar"
    : >"$there/deb/var/lib/dpkg/status"
    configure dev
    cmake --build build/dev --target package
    dpkg --root="$there/deb" --force-not-root --log=/dev/null --unpack build/dev/*.deb
    tar -x -C "$there/tar" --strip-components=1 -f build/dev/*.tar.gz
    diff -r "$there/deb/usr" "$there/tar"
    "$there/deb/usr/bin/tolvane" run --frames 0:9
    "$there/tar/bin/tolvane" run --frames 0:9
    grep -q churn "$there/deb/usr/share/man/man1/tolvane-run.1"
    python3 "$packages_tests/dependencies.py" build/dev/*.deb
    figure "$(find build/dev -maxdepth 1 -name '*.deb' | wc -l) Debian packages and an archive"
}
