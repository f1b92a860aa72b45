"""scripts/check_includes, on small trees of files made here."""

import subprocess
import tempfile
import unittest
from pathlib import Path

CHECK = Path(__file__).parents[2] / "scripts/check_includes"
# One for all tests: some file systems take longer to remove a folder than the check takes.
TREE = tempfile.TemporaryDirectory()

# Every tree has these headers, so that quoted includes can name them.
HEADERS = [
    "plugin/Records.h", "translation/Tolvane/Registry.h", "types/Rigging/Pins.h",
    "version/BuildRecord.h", "graph/Pelmor/Type.h", "graph/src/Types.h", "host/src/Node.h",
    "executor/src/Loader.h", "tests/Rigs.h", "tools/commands/Run.h", "tools/report/Table.h",
    "tools/node/RoundTrip.h", "tools/rig/Rig.h", "tools/types/ReadTypes.h",
    "tools/support/Error.h", "tools/view/Page.h", "tools/inspect/Trace.h", "tools/check/Case.h",
    "tools/process/Child.h",
]  # fmt: skip

# The generic half is one folder with rooms, each with a row of its own.
PLACES = {"translation": "translation/Tolvane"} | {
    room: f"translation/Tolvane/{room}" for room in ("record", "convert", "attributes")
}


def setUpModule():
    for header in HEADERS:
        write(header, "")
    write("version/Commit.h.in", "")
    subprocess.run(["git", "init", "--quiet", TREE.name], check=True)


def findings(**sources):
    """What the check prints for a tree with these lines in the files <folder>/Subject.cpp."""
    subjects = [
        write(f"{PLACES.get(folder, folder)}/Subject.cpp", text) for folder, text in sources.items()
    ]
    run = subprocess.run([CHECK, TREE.name], capture_output=True, text=True)
    for subject in subjects:
        subject.unlink()
    assert run.returncode == (1 if run.stdout else 0) and not run.stderr, run
    return run.stdout.splitlines()


def includes(headers):
    return "".join(f"#include {header}\n" for header in headers)


def write(name, text):
    path = Path(TREE.name, name)
    path.parent.mkdir(parents=True, exist_ok=True)
    path.write_text(text)
    return path


class CheckIncludes(unittest.TestCase):
    def assert_allowed(self, folder, *headers):
        self.assertEqual(findings(**{folder: includes(headers)}), [])

    def assert_refused(self, folder, *headers, why=""):
        found = findings(**{folder: includes(headers)})
        self.assertEqual(len(found), len(headers), found)
        for number, finding in enumerate(found, start=1):
            self.assertRegex(finding, rf"^{PLACES.get(folder, folder)}/Subject\.cpp:{number}: .*{why}")

    def test_plugin_may_include_the_product_and_the_two_interfaces(self):
        self.assert_allowed(
            "plugin", "<Tolvane/Registry.h>", "<Tolvane/attributes/Mapping.h>", "<Rigging/Pins.h>",
            "<Tolvane/convert/Read.h>", '"version/BuildRecord.h"', "<Pelmor/Type.h>",
            "<OpenVornik/VPlug.h>", "<memory>",
        )  # fmt: skip
        self.assert_refused("plugin", '"tools/rig/Rig.h"', '"tests/Rigs.h"')

    def test_plugin_knows_the_executor_by_one_header(self):
        self.assert_allowed("plugin", "<TavrikGraph/Executor/TypeTranslation.h>")
        self.assert_refused("plugin", "<TavrikGraph/Executor/Library.h>", why="is of executor/")

    def test_attributes_may_include_graph_and_host_alone(self):
        self.assert_allowed("attributes", "<Pelmor/Type.h>", "<OpenVornik/VPlug.h>")
        self.assert_refused(
            "attributes", "<Rigging/Pins.h>", "<Tolvane/convert/Read.h>", "<Tolvane/Registry.h>",
            "<TavrikGraph/Executor/TypeTranslation.h>",
        )  # fmt: skip

    def test_pages_and_what_a_page_is_know_the_graph_alone(self):
        self.assert_allowed("record", "<Pelmor/Array.h>", "<Tavrik/Object.h>")
        self.assert_allowed("types", "<Pelmor/Array.h>", "<Math/double4x4.h>", "<Tolvane/record/Page.h>")
        self.assert_refused("record", "<OpenVornik/VPlug.h>", "<Rigging/Pins.h>", "<Tolvane/convert/Read.h>")
        self.assert_refused("types", "<OpenVornik/VPlug.h>", "<Tolvane/convert/Read.h>")

    def test_generic_half_knows_no_record(self):
        self.assert_allowed("convert", "<Tolvane/record/Page.h>", "<Pelmor/Type.h>", "<OpenVornik/VPlug.h>")
        self.assert_refused(
            "convert", "<Rigging/Pins.h>", "<Tolvane/attributes/Mapping.h>", '"version/BuildRecord.h"'
        )
        self.assert_allowed(
            "translation", "<Tolvane/record/Page.h>", "<Tolvane/convert/Read.h>", "<Tolvane/attributes/Mapping.h>",
            "<TavrikGraph/Executor/TypeTranslation.h>",
        )  # fmt: skip
        self.assert_refused("translation", "<Rigging/Pins.h>", '"plugin/Records.h"')

    def test_version_may_include_standard_and_posix_headers_alone(self):
        self.assert_allowed("version", "<cstdlib>", "<stdio.h>", "<unistd.h>")
        self.assert_refused("version", "<Pelmor/String.h>", "<OpenVornik/VGlobal.h>")

    def test_graph_and_host_know_nothing_but_themselves(self):
        self.assert_allowed("graph", "<Pelmor/Type.h>", '"graph/src/Types.h"', "<stdlib.h>")
        self.assert_allowed("host", "<OpenVornik/VPlug.h>", '"host/src/Node.h"', "<map>")
        self.assert_refused("graph", "<OpenVornik/VPlug.h>", "<Rigging/Pins.h>")
        self.assert_refused("host", "<Pelmor/Type.h>", "<Rigging/Pins.h>")

    def test_executor_may_include_graph_host_and_posix(self):
        self.assert_allowed("executor", "<Pelmor/Type.h>", "<OpenVornik/VPlug.h>", "<dlfcn.h>")
        self.assert_refused("executor", "<Tolvane/Registry.h>", "<Rigging/Pins.h>")

    def test_tools_must_not_include_the_inside_of_the_plugin(self):
        self.assert_allowed(
            "tools/node", "<TavrikGraph/Executor/Library.h>", "<Pelmor/Type.h>",
            "<OpenVornik/VPlug.h>", "<Rigging/Pins.h>", '"tools/node/RoundTrip.h"',
        )  # fmt: skip
        for folder in ("tools", "tools/commands", "tools/node"):
            self.assert_refused(
                folder, "<Tolvane/Registry.h>", "<Tolvane/attributes/Mapping.h>", "<Tolvane/convert/Read.h>"
            )

    def test_rooms_of_tools_include_each_other_in_one_direction(self):
        rooms = {
            "commands": '"tools/commands/Run.h"', "view": '"tools/view/Page.h"',
            "report": '"tools/report/Table.h"', "inspect": '"tools/inspect/Trace.h"',
            "check": '"tools/check/Case.h"', "node": '"tools/node/RoundTrip.h"',
            "rig": '"tools/rig/Rig.h"', "process": '"tools/process/Child.h"',
            "support": '"tools/support/Error.h"',
        }  # fmt: skip
        passed_over = {"view": {"inspect", "check", "process"}, "check": {"rig"}}
        self.assert_allowed("tools/commands", '"tools/types/ReadTypes.h"')
        self.assert_allowed("tools/types", '"tools/support/Error.h"')
        self.assert_refused("tools/types", '"tools/rig/Rig.h"', '"tools/report/Table.h"')
        self.assert_refused("tools/node", '"tools/types/ReadTypes.h"')
        for place, room in enumerate(rooms):
            allowed = set(list(rooms)[place:]) - passed_over.get(room, set())
            self.assert_allowed(f"tools/{room}", *(rooms[each] for each in allowed))
            refused = [rooms[each] for each in rooms if each not in allowed]
            self.assert_refused(f"tools/{room}", *refused, why=f"tools/{room} may not")

    def test_the_top_of_tools_includes_commands_process_and_support_alone(self):
        self.assert_allowed(
            "tools", '"tools/commands/Run.h"', '"tools/process/Child.h"', '"tools/support/Error.h"'
        )
        self.assert_refused(
            "tools", '"tools/view/Page.h"', '"tools/report/Table.h"', '"tools/inspect/Trace.h"',
            '"tools/check/Case.h"', '"tools/node/RoundTrip.h"', '"tools/rig/Rig.h"',
            '"tools/types/ReadTypes.h"',
        )  # fmt: skip

    def test_each_library_of_tools_has_its_room(self):
        rooms = {
            "commands": "<CLI/CLI.hpp>", "report": "<nlohmann/json.hpp>", "rig": "<assimp/scene.h>",
            "check": "<gelf.h>",
        }  # fmt: skip
        rooms["types"] = rooms["report"]
        for room in ("", "commands", "view", "report", "inspect", "check", "node", "rig", "process",
                     "types", "support"):  # fmt: skip
            folder = f"tools/{room}".rstrip("/")
            own = rooms.get(room)
            self.assert_refused(folder, *sorted({*rooms.values()} - {own}), why="alone$")
            self.assert_allowed(folder, *[own] if own else [])

    def test_every_room_of_tools_needs_a_row(self):
        self.assert_refused("tools/attic", "<vector>", why="no row")
        self.assert_refused("tools/rig/attic", "<vector>", why="no row")
        self.assert_refused("tests", '"tools/Rig.h"', why="root$")

    def test_tests_may_include_everything(self):
        self.assert_allowed(
            "tests", *(f'"{header}"' for header in HEADERS if "tests/" in header or "/src/" in header),
            "<Pelmor/Type.h>", "<Tolvane/convert/Read.h>", "<Rigging/Pins.h>",
            "<OpenVornik/Testing/CallObserver.h>", "<gtest/gtest.h>",
        )  # fmt: skip

    def test_observation_of_host_calls_stays_out_of_the_product(self):
        self.assert_allowed("host", "<OpenVornik/Testing/CallObserver.h>")
        self.assert_allowed("benchmarks", "<OpenVornik/Testing/CallObserver.h>")
        for folder in ("plugin", "attributes", "convert", "executor", "tools"):
            self.assert_refused(folder, "<OpenVornik/Testing/CallObserver.h>", why="alone$")

    def test_rooms_of_tools_observe_host_calls_where_they_tell_of_them(self):
        rooms = ("check", "commands", "inspect", "node", "process", "report", "rig", "support", "types", "view")
        found = findings(
            **{f"tools/{room}": includes(["<OpenVornik/Testing/CallObserver.h>"]) for room in rooms}
        )
        refused = [finding.split("/")[1] for finding in found if finding.endswith(" alone")]
        self.assertEqual(refused, [room for room in rooms if room not in ("check", "inspect")])

    def test_private_headers_of_a_platform_stay_inside_it(self):
        self.assert_refused("convert", '"host/src/Node.h"', why="is private to host/")
        self.assert_refused("executor", '"graph/src/Types.h"', why="is private to graph/")
        self.assert_refused("tools", '"executor/src/Loader.h"', why="is private to executor/")

    def test_headers_that_are_installed_are_in_angle_brackets(self):
        for folder in ("graph", "types", "tests"):
            self.assert_refused(folder, '"graph/Pelmor/Type.h"', why="write <Pelmor/Type.h>")
        self.assert_refused("tests", '"types/Rigging/Pins.h"', why="write <Rigging/Pins.h>")
        self.assert_refused(
            "plugin", '"translation/Tolvane/Registry.h"', why="write <Tolvane/Registry.h>"
        )

    def test_headers_that_are_not_installed_are_in_quotes(self):
        self.assert_refused("tests", "<plugin/Records.h>", why="in quotes")

    def test_quoted_headers_are_named_from_the_root(self):
        self.assert_refused("convert", '"Records.h"', '"plugin/Absent.h"', why="root$")
        self.assert_refused("tests", '"Rigs.h"', why="root$")

    def test_an_include_must_not_climb(self):
        self.assert_refused("convert", '"../plugin/Records.h"', "<../Rigging/Pins.h>", why="climbs")
        self.assert_refused("tests", '"tests/../plugin/Records.h"', why="climbs")

    def test_libraries_stay_out_of_the_product_and_the_platforms(self):
        for folder in ("plugin", "attributes", "types", "convert", "version",
                       "graph", "host", "executor"):  # fmt: skip
            self.assert_refused(folder, "<nlohmann/json.hpp>", "<CLI/CLI.hpp>", "<zlib.h>")
        self.assert_refused("convert", "<unistd.h>")

    def test_generated_headers_count_by_their_template(self):
        self.assert_allowed("version", '"version/Commit.h"')

    def test_every_folder_needs_a_row(self):
        self.assert_refused("misc", "<vector>", why="no row")

    def test_every_finding_names_its_file_and_line(self):
        found = findings(types='#include <map>\n\n  #  include "x.h"\n', host="\n#include HEADER\n")
        self.assertEqual(
            found,
            [
                "host/Subject.cpp:2: HEADER is no plain header name",
                'types/Subject.cpp:3: "x.h" is no file, seen from the project\'s root',
            ],
        )


if __name__ == "__main__":
    unittest.main()
