#!/usr/bin/env python3
"""Checks that configuring names what an SDK lacks: lacking_sdks.py PREFIX FOLDER

The lists of what is needed are tried with each thing cut out of the headers: of the host, all that
tests/reduced_host declares, which is what the product may ask of one; of the other platforms, what
the table here names. How configuring tells of a gap is tried with some whole SDKs. A line for each
gap that was named is left in FOLDER/named."""

import os
import re
import shutil
import subprocess
import sys
from concurrent.futures import ThreadPoolExecutor
from pathlib import Path

ROOT = Path(__file__).parents[2]
NEEDS = ROOT / "cmake/needs"
REDUCED = ROOT / "tests/reduced_host"

# What the product uses of each header, by the end of its name in the list.
USED = {
    "Pelmor": {
        "Math/double4x4.h": "double4x4::rows",
        "Pelmor/AnyValue.h": "holding moveAssign hasValue AnyValue::type getIf",
        "Pelmor/Array.h": "size Array::begin Array::end append clear swap elementRep SharedArray",
        "Pelmor/ArrayType.h": "getElementType",
        "Pelmor/DefaultClass.h": "getDefaultClass",
        "Pelmor/ElementTraits.h": "ElementTraits ElementOperations DefaultConstruct ConstructCopies"
        " CopyConstruct MoveConstruct CopyAssign MoveAssign Destroy",
        "Pelmor/EnumType.h": "EnumType::begin EnumType::end Enumeration::getName getValue",
        "Pelmor/NamedEntity.h": "getFullyQualifiedName",
        "Pelmor/Ptr.h": "makePtr",
        "Pelmor/String.h": "asChar compare",
        "Pelmor/StructType.h": "StructType::begin StructType::end Member::getName getType",
        "Pelmor/Type.h": "getTypeKind TypeKind::Array TypeKind::Struct TypeKind::Enum",
        "Pelmor/TypeInfo.h": "s_void typeInfoLess HeldIdentity",
        "Pelmor/UntypedTypeRep.h": "allocate deallocate",
        "Tavrik/Object.h": "Tavrik::Object",
    },
    "TavrikGraph": {
        "TavrikGraph/Executor/HostContext.h": "plug dataBlock",
        "TavrikGraph/Executor/NodeEditContext.h": "node modifier",
        "TavrikGraph/Executor/PortDirection.h": "Input",
        "TavrikGraph/Executor/TypeTranslation.h": "TypeTranslation::release getSupportedTypeNames"
        " translateFromHost translateToHost portAdded",
    },
}

# What is done to a whole SDK: the file and what is cut out of it (all if empty; the file itself if
# None); the options; and what the error says.
SDKS = [
    ({"lib/cmake/OpenVornik/OpenVornikTargets.cmake": ""}, [], ["has no target OpenVornik::OpenVornik"]),
    ({"lib/cmake/OpenVornik/OpenVornikConfig.cmake": None}, [], ["OpenVornikConfig.cmake"]),
    ({"include/OpenVornik/VPlug.h": "elementByLogicalIndex", "include/OpenVornik/VFnEnumAttribute.h": ""},
     [], ["lacks what the plugin needs: VPlug::elementByLogicalIndex VFnEnumAttribute::VFnEnumAttribute"
          " VFnEnumAttribute::create VFnEnumAttribute::addField"]),
    ({"include/OpenVornik/VGlobal.h": None}, [], ["lacks what the plugin needs: <OpenVornik/VGlobal.h>"]),
    ({"include/OpenVornik/VStatus.h": None}, [], ["does not compile", "OpenVornik/VStatus.h"]),
    ({"include/Pelmor/AnyValue.h": "moveAssign"}, ["-DCMAKE_CXX_COMPILER=clang++"],
     ["lacks what the plugin needs: Pelmor::AnyValue::moveAssign"]),
    ({"include/Pelmor/Library.h": "defineStruct"}, ["-DTOLVANE_TOOLS=ON"],
     ["TOLVANE_TOOLS=OFF", "Pelmor::Library::defineStruct"]),
]  # fmt: skip


def need_lines(platform):
    """The lines of the list, each with what it names behind it."""
    lines = (NEEDS / f"{platform}.cpp").read_text().splitlines()
    return [line.rpartition("  // ")[::2] for line in lines]


def named_lacking(platform, overlay, includes):
    """What the compiler finds lacking with the headers of `overlay` in place of others."""
    command = ["g++", "-std=c++17", "-fsyntax-only", "-w", "-DPLUG_CONST=", f"-I{ROOT}"]
    command += [f"-I{folder}" for folder in (overlay, *includes)]
    english = {**os.environ, "LC_ALL": "C"}
    command += [NEEDS / f"{platform}.cpp"]
    run = subprocess.run(command, capture_output=True, text=True, env=english)
    errors = re.findall(rf"/{platform}\.cpp:(\d+):\d+: (?:error| +required from here)", run.stderr)
    lines = need_lines(platform)
    return {lines[int(number) - 1][1] for number in errors}


def host_gaps():
    """Each declaration of the reduced host: its header, the header without it, and its name."""
    constant = r"static const \w+ (\w+)"
    function = r"[^\n/{}:;=~]*?([\w=!+]+)\([^;{}~]*\)(?: PLUG_CONST)?"
    declaration = re.compile(rf"^ *(?:{constant}|{function});", re.M)
    for header in sorted(REDUCED.glob("OpenVornik/*.h")):
        text = header.read_text()
        public = text.partition("protected:")[0]
        for found in declaration.finditer(public):
            gone = "" if found[1] else found[0][:-1] + " = delete;"
            owner = re.findall(r"^class (\w+)", text[: found.start()], re.M)[-1]
            name = f"{owner}::{found[1] or found[2]}"
            yield header, text[: found.start()] + gone + text[found.end() :], name


# Nothing assigns objects, copies handles or joins the host's strings.
NOT_NEEDED = {"VObject::operator=", "VDataHandle::VDataHandle", "VString::operator+"}


def try_host_gap(folder, number, header, text, name):
    overlay = folder / f"host_{number}"
    (overlay / "OpenVornik").mkdir(parents=True)
    (overlay / "OpenVornik" / header.name).write_text(text)
    lacking = named_lacking("OpenVornik", overlay, [REDUCED])
    if (name in lacking) == (name in NOT_NEEDED):
        sys.exit(f"without {name} of the host, these are named: {', '.join(lacking)}")
    return [] if name in NOT_NEEDED else [name]


def batches(platform):
    """Gaps: header, word, end of the name, code. Those of one batch do not hide each other."""
    lines = need_lines(platform)
    batches = []

    def hides(word, code):
        return re.search(rf"\b{word}\b", code)

    for header, ends in USED[platform].items():
        for end in ends.split():
            word = end.rpartition("::")[2]
            own = " ".join(code for code, name in lines if name.endswith(end))
            for batch in batches:
                if not any(hides(each[1], own) or hides(word, each[3]) for each in batch):
                    break
            else:
                batch = []
                batches.append(batch)
            batch.append((header, word, end, own))
    return batches


def try_batch(prefix, folder, platform, number, batch):
    overlay = folder / f"{platform}_{number}"
    for header, word, _, _ in batch:
        cut = overlay / header
        cut.parent.mkdir(parents=True, exist_ok=True)
        text = (cut if cut.exists() else prefix / "include" / header).read_text()
        assert re.search(rf"\b{word}\b", text), f"{header} has no {word}"
        cut.write_text(re.sub(rf"\b{word}\b", word + "Gone", text))
    lacking = named_lacking(platform, overlay, [prefix / "include"])
    for _, _, end, _ in batch:
        if not any(name.endswith("::" + end) or name == end for name in lacking):
            sys.exit(f"without {end} of {platform}, these are named: {', '.join(lacking)}")
    return [end for _, _, end, _ in batch]


def configure(sdk, build, *options):
    command = ["cmake", "-S", ROOT, "-B", build, "-G", "Ninja", f"-DCMAKE_PREFIX_PATH={sdk}"]
    command += ["-DTOLVANE_PLATFORM_PACKAGES=Pelmor;OpenVornik;TavrikGraph", "-DBUILD_TESTING=OFF"]
    command += ["-DTOLVANE_TOOLS=OFF", *options]
    run = subprocess.run(command, capture_output=True, text=True)
    return run.returncode, " ".join(run.stderr.split())


def copy_sdk(prefix, sdk):
    for part in ("include", "lib"):
        shutil.copytree(prefix / part, sdk / part)


def try_sdk(prefix, folder, number, cuts, options, says):
    sdk = folder / f"sdk_{number}"
    copy_sdk(prefix, sdk)
    for file, cut in cuts.items():
        if cut is None:
            (sdk / file).unlink()
        else:
            text = (sdk / file).read_text()
            assert cut in text, f"{file} has no {cut}"
            (sdk / file).write_text(text.replace(cut, cut + "Gone") if cut else "")
    status, said = configure(sdk, folder / f"build_{number}", *options)
    if status == 0 or not all(words in said for words in says):
        sys.exit(f"without {cuts}, it ends with {status} and should say {says}:\n{said}")
    return says


# As a studio writes it for an SDK that comes without one.
OWN_CONFIG = """add_library(OpenVornik::OpenVornik SHARED IMPORTED)
set_target_properties(OpenVornik::OpenVornik PROPERTIES
    IMPORTED_LOCATION "${CMAKE_CURRENT_LIST_DIR}/../../libOpenVornik.so"
    INTERFACE_INCLUDE_DIRECTORIES "${CMAKE_CURRENT_LIST_DIR}/../../../include"
    INTERFACE_COMPILE_DEFINITIONS PLUG_CONST=)
"""
OF_THIS_BUILD = """add_library(OpenVornik INTERFACE)
target_include_directories(OpenVornik INTERFACE "${CMAKE_CURRENT_LIST_DIR}/../../../include")
add_library(OpenVornik::OpenVornik ALIAS OpenVornik)
"""


def try_reduced_sdk(prefix, folder):
    """A host that has no more than the product may ask of it is good for the product."""
    sdk, build = folder / "reduced_sdk", folder / "build_reduced"
    copy_sdk(prefix, sdk)
    shutil.rmtree(sdk / "include/OpenVornik")
    shutil.copytree(REDUCED / "OpenVornik", sdk / "include/OpenVornik")
    (sdk / "lib/cmake/OpenVornik/OpenVornikConfig.cmake").write_text(OWN_CONFIG)
    status, said = configure(sdk, build)
    if status != 0:
        sys.exit(f"with the reduced host, nothing should be lacking:\n{said}")
    status, said = configure(sdk, build, "-DTOLVANE_TOOLS=ON")
    for_tools = "TOLVANE_TOOLS=OFF builds: <OpenVornik/VErrorListener.h>"
    if status == 0 or for_tools not in said:
        sys.exit(f"the reduced host should lack what the command line needs:\n{said}")
    other = folder / "other_sdk"
    shutil.copytree(sdk, other)
    (other / "include/OpenVornik/VGlobal.h").unlink()
    status, said = configure(sdk, build, f"-DOpenVornik_DIR={other}/lib/cmake/OpenVornik")
    of_other = "lacks what the plugin needs: <OpenVornik/VGlobal.h>"
    if status == 0 or of_other not in said:
        sys.exit(f"another SDK in the same build folder should lack a header:\n{said}")
    (other / "lib/cmake/OpenVornik/OpenVornikConfig.cmake").write_text(OF_THIS_BUILD)
    status, said = configure(other, folder / "build_other", "-DTOLVANE_INSTALL=ON")
    not_imported = "is not IMPORTED"
    if status == 0 or not_imported not in said:
        sys.exit(f"a target that is part of the build cannot be installed against:\n{said}")
    return [for_tools, of_other, not_imported]


def main():
    prefix, folder = Path(sys.argv[1]), Path(sys.argv[2])
    shutil.rmtree(folder, ignore_errors=True)
    with ThreadPoolExecutor(len(os.sched_getaffinity(0))) as pool:
        tries = [pool.submit(try_reduced_sdk, prefix, folder)]
        tries += [pool.submit(try_sdk, prefix, folder, n, *sdk) for n, sdk in enumerate(SDKS)]
        tries += [pool.submit(try_host_gap, folder, n, *gap) for n, gap in enumerate(host_gaps())]
        for platform in USED:
            for n, batch in enumerate(batches(platform)):
                tries.append(pool.submit(try_batch, prefix, folder, platform, n, batch))
        named = [name for each in tries for name in each.result()]
    Path(folder, "named").write_text("".join(f"{name}\n" for name in named))


if __name__ == "__main__":
    main()
