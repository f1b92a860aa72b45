#!/usr/bin/env python3
"""Checks that configuring names what an SDK lacks: lacking_sdks.py PREFIX FOLDER

Each gap is cut into a copy of the installed packages. A line for each that was named is left in
FOLDER/named. A host that has no more than the operations of tests/reduced_host lacks nothing."""

import shutil
import subprocess
import sys
from pathlib import Path

ROOT = Path(__file__).parents[2]

# Platform; file; what is cut out of it (all if empty); what the error says.
GAPS = [
    ("OpenVornik", "include/OpenVornik/VPlug.h", "elementByLogicalIndex", "VPlug::elementByLogicalIndex"),
    ("OpenVornik", "include/OpenVornik/VGlobal.h", "displayError", "VGlobal::displayError"),
    ("OpenVornik", "include/OpenVornik/VFnEnumAttribute.h", "", "<OpenVornik/VFnEnumAttribute.h>"),
    ("OpenVornik", "lib/cmake/OpenVornik/OpenVornikTargets.cmake", "", "has no target OpenVornik::OpenVornik"),
    ("OpenVornik", "lib/cmake/OpenVornik/OpenVornikConfig.cmake", None, "OpenVornikConfig.cmake"),
    ("Pelmor", "include/Pelmor/AnyValue.h", "moveAssign", "Pelmor::AnyValue"),
    ("Pelmor", "include/Pelmor/DefaultClass.h", "getDefaultClass", "Pelmor::Internal::getDefaultClass"),
    ("TavrikGraph", "include/TavrikGraph/Executor/HostContext.h", "dataBlock", "TavrikGraph::Executor::HostContext"),
]  # fmt: skip


def configure(sdk, platform, build, *options):
    command = ["cmake", "-S", ROOT, "-B", build, "-G", "Ninja", f"-DCMAKE_PREFIX_PATH={sdk}"]
    command += [f"-DTOLVANE_PLATFORM_PACKAGES={platform}", "-DBUILD_TESTING=OFF"]
    command += ["-DTOLVANE_TOOLS=OFF", *options]
    return subprocess.run(command, capture_output=True, text=True)


def main():
    prefix, folder = Path(sys.argv[1]), Path(sys.argv[2])
    shutil.rmtree(folder, ignore_errors=True)
    named = []
    for number, (platform, file, cut, says) in enumerate(GAPS):
        sdk = folder / f"sdk_{number}"
        shutil.copytree(prefix, sdk)
        if cut is None:
            (sdk / file).unlink()
        else:
            text = (sdk / file).read_text()
            assert cut in text, f"{file} has no {cut}"
            (sdk / file).write_text(text.replace(cut, cut + "Gone") if cut else "")
        run = configure(sdk, platform, folder / f"build_{number}")
        said = " ".join(run.stderr.split())
        if run.returncode == 0 or says not in said:
            sys.exit(f"without {cut or 'all'} of {file}, it should name {says}:\n{run.stderr}")
        named.append(f"{platform}: {says}\n")
        shutil.rmtree(sdk)

    sdk = folder / "reduced_sdk"
    shutil.copytree(prefix, sdk)
    shutil.rmtree(sdk / "include/OpenVornik")
    shutil.copytree(ROOT / "tests/reduced_host/OpenVornik", sdk / "include/OpenVornik")
    reduced = configure(sdk, "OpenVornik", folder / "build_reduced", "-DCMAKE_CXX_FLAGS=-DPLUG_CONST=")
    if reduced.returncode != 0:
        sys.exit(f"with the reduced host, nothing should be lacking:\n{reduced.stderr}")
    Path(folder, "named").write_text("".join(named))


if __name__ == "__main__":
    main()
