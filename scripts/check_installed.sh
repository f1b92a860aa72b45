# The checks of what people get who do not have this repository: what is installed, the packages, and
# the project as a part of another one. Sourced by scripts/check, never run.
# shellcheck shell=bash disable=SC2154

packages_tests=$root/tests/packages
# What is installed, after it was moved to another place.
prefix=$logs/installed

install_and_move() {
    configure dev
    build dev
    rm -rf "$prefix" "$logs/first_place"
    cmake --install build/dev --prefix "$logs/first_place"
    mv "$logs/first_place" "$prefix"
    figure "$(find "$prefix" -type f | wc -l) files"
}

headers_alone() {
    scripts/check_headers "$prefix/include"
    figure "$(find "$prefix/include" -name '*.h' | wc -l) headers, with g++ and clang++"
}

# configure_afresh SOURCE BUILD [CMAKE_OPTION...]
configure_afresh() {
    rm -rf "$2"
    cmake -S "$1" -B "$2" -G Ninja -D CMAKE_PREFIX_PATH="$prefix" "${@:3}"
}

consume() {
    local compiler folder
    for compiler in g++ clang++; do
        folder=$logs/consumer_$compiler
        configure_afresh "$packages_tests/consumer" "$folder" -D CMAKE_CXX_COMPILER="$compiler"
        cmake --build "$folder"
        "$folder/consumer"
    done
    figure "four packages found and used, with g++ and clang++"
}

# All platforms from packages, without their folders in the tree, and then each alone.
platforms_from_packages() {
    local source=$logs/without_platforms/source built=$logs/without_platforms/build platform
    rm -rf "$source"
    mkdir -p "$source"
    git ls-files -z --cached --others --exclude-standard -- ':!graph' ':!host' ':!executor' |
        tar -c --null --files-from=- | tar -x -C "$source"
    configure_afresh "$source" "$built" -D CMAKE_BUILD_TYPE=Debug -D CMAKE_CXX_FLAGS_DEBUG=-O0 \
        -D CMAKE_CXX_COMPILER=clang++ -D CMAKE_UNITY_BUILD=ON -D CMAKE_UNITY_BUILD_BATCH_SIZE=12 \
        -D TOLVANE_PLATFORM_PACKAGES="Pelmor;OpenVornik;TavrikGraph"
    cmake --build "$built"
    TOLVANE_MODEL_SEQUENCES=200 run_tests "$built" 'Generator.*:*FaultyLibraries*'
    for platform in Pelmor OpenVornik TavrikGraph; do
        configure_afresh "$root" "$logs/with_package_of_$platform" -D BUILD_TESTING=OFF \
            -D TOLVANE_TOOLS=OFF -D TOLVANE_PLATFORM_PACKAGES="$platform"
        cmake --build "$logs/with_package_of_$platform"
    done
}

# Packages of the platforms, each with one thing taken out; and one of the host that has no more than
# what the product needs.
lacking_sdks() {
    python3 "$packages_tests/lacking_sdks.py" "$prefix" "$logs/lacking_sdks"
    figure "$(wc -l <"$logs/lacking_sdks/named") gaps named"
}

subproject() {
    local way folder command
    for way in ON OFF; do
        folder=$logs/subproject_$way
        configure_afresh "$packages_tests/subproject" "$folder" -D FETCH=$way -D TOLVANE="$root" \
            -D CMAKE_EXPORT_COMPILE_COMMANDS=ON
        cmake --build "$folder"
        "$folder/outer"
        cmake --install "$folder" --prefix "$folder/prefix"
        [[ $(cd "$folder/prefix" && find . -type f) == ./bin/outer ]]
        [[ $(find "$folder" -name '*.so' | sort | xargs -n 1 basename | xargs) == \
            'libTavrikExecutor.so libPelmor.so libOpenVornik.so' ]]
        [[ -z $(find "$folder" -name '*.a' -o -name 'tolvane' -type f -o -name '*_tests') ]]
        [[ $(ctest --test-dir "$folder" -N) == *'Total Tests: 0'* ]]
        cmake --build "$folder" --target face
        scripts/check_library "$folder/face.so"
        # The caller's own source is compiled without an option of this project's.
        command=$(grep '"command".*subproject/main.cpp' "$folder/compile_commands.json")
        [[ $command != *' -W'* ]]
    done
    figure "by add_subdirectory and by FetchContent"
}

# Every command of the page, and every mistake that the page says is caught.
own_translation() {
    local compiler
    for compiler in g++ clang++; do
        rm -rf "$logs/own_$compiler"
        CXX=$compiler PREFIX=$prefix python3 "$packages_tests/run_document.py" \
            docs/own_translation.md "$logs/own_$compiler"
        scripts/check_library "$logs/own_$compiler/face/build/FaceTranslation.so"
    done
    python3 "$packages_tests/mistakes.py" "$packages_tests/mistakes" "$prefix" "$logs/mistakes"
    figure "the page's commands with g++ and clang++, $(wc -l <"$logs/mistakes/caught") mistakes caught"
}

# The libraries that are fit, as they are installed and as the page has them built, and those that are not.
tolvane_check() {
    local face=$logs/own_g++/face
    "$prefix/bin/tolvane" check "$prefix/lib/TolvanePlugin.so"
    "$prefix/bin/tolvane" check "$face/build/FaceTranslation.so" --types "$face/types.json"
    build dev check_tests
    build/dev/bin/check_tests --gtest_filter='*Faulty*' | tee "$logs/faulty.tests"
    figure "two fit libraries, $(sed -n 's/^\[  PASSED  \] \([0-9]*\) tests*\.$/\1/p' "$logs/faulty.tests") faulty ones found"
}

# The packages, unpacked into an empty root by the system's own tools.
packages() {
    local there=$logs/packages file
    rm -rf "$there" build/dev/_CPack_Packages build/dev/*.deb build/dev/*.tar.gz
    mkdir -p "$there/deb" "$there/tar"
    cmake --build build/dev --target package
    for file in build/dev/*.deb; do dpkg-deb --extract "$file" "$there/deb"; done
    tar -x -C "$there/tar" --strip-components=1 -f build/dev/*.tar.gz
    diff -r "$there/deb/usr" "$there/tar"
    "$there/deb/usr/bin/tolvane" run --frames 0:9
    "$there/tar/bin/tolvane" run --frames 0:9
    grep -q churn "$there/deb/usr/share/man/man1/tolvane-run.1"
    python3 "$packages_tests/dependencies.py" build/dev/*.deb
    figure "$(find build/dev -maxdepth 1 -name '*.deb' | wc -l) Debian packages and an archive"
}
