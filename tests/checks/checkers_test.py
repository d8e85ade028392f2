"""Each checker is run on a small project that is made for the test."""
import pathlib
import subprocess
import sys
import tempfile
import unittest

SCRIPTS = pathlib.Path(__file__).resolve().parents[2] / "scripts"

TABLE = """| Level | Folder | What | Includes | Calls |
|---|---|---|---|---|
| 0 | `base` | texts | | |
| 1 | `controls` | lists | | |
| 2 | `window` | Form1 | | |
| 3 | `catalogue` | songs | | |
| 3 | `playlists` | lists | `catalogue` | `playback` |
| 3 | `playback` | player | | |
| 4 | `platform/linux` | machine | POSIX | |
| 5 | `desktop` | window | Qt | |
"""
SOUND = {
    "src/README.md": TABLE,
    "src/base/text.h": "#include <string>\n",
    "src/controls/list.h": "",
    "src/window/form1.h": '#include "controls/list.h"\n',
    "src/window/form1_controls.h": 'ListBox List1{window, "List1"};\n',
    "src/window/form1_views.cpp": '#include "window/form1.h"\nvoid Form1::showAll() {}\n',
    "src/window/form1_events.cpp": "void Form1::wire() { play(); }\n",
    "src/catalogue/songs.h": '#include "base/text.h"\n#include "catalogue/song.h"\n',
    "src/catalogue/song.h": "",
    "src/catalogue/form1_scan.cpp": '#include "window/form1.h"\nvoid Form1::scan() {\n  showAll();\n}\n',
    "src/playlists/list.h": '#include "catalogue/songs.h"\n',
    "src/playlists/form1_keys.cpp": "void Form1::key() {\n  scan();  // not draw()\n  play();\n}\n",
    "src/playback/form1_playing.cpp": "void Form1::play() {}\n",
    "src/platform/linux/machine.cpp": "#include <unistd.h>\n",
    "src/desktop/window.cpp": '#include <QWidget>\n#include "window/form1.h"\nvoid f() { icon("list1"); }\n',
    "src/CMakeLists.txt": "library(platform/linux)\n",
    "tests/desktop/window_test.cpp": "#include <QTest>\n",
}


class Project(unittest.TestCase):
    def run_on(self, files, script, *arguments):
        with tempfile.TemporaryDirectory() as root:
            for name, text in files.items():
                path = pathlib.Path(root) / name
                path.parent.mkdir(parents=True, exist_ok=True)
                path.write_text(text, encoding="utf-8")
            done = subprocess.run([sys.executable, str(SCRIPTS / script), *arguments, root], stdout=subprocess.PIPE,
                                  stderr=subprocess.STDOUT, text=True, check=False)
            return done.returncode, done.stdout


class Layers(Project):
    def refused(self, changes, complaint):
        status, said = self.run_on(SOUND | changes, "check-layers")
        self.assertEqual(status, 1)
        self.assertEqual(said.strip(), complaint)

    def test_a_sound_project_is_accepted(self):
        self.assertEqual(self.run_on(SOUND, "check-layers"), (0, ""))

    def test_an_include_may_not_point_upwards(self):
        self.refused({"src/base/text.cpp": '\n#include "catalogue/song.h"\n'},
                     "src/base/text.cpp:2: base (level 0) may not include catalogue (level 3)")

    def test_an_include_may_not_point_sideways_unless_the_table_says_so(self):
        self.refused({"src/catalogue/song.cpp": '#include "playlists/list.h"\n'},
                     "src/catalogue/song.cpp:1: catalogue (level 3) may not include playlists (level 3)")

    def test_a_path_begins_at_the_include_root(self):
        self.refused({"src/catalogue/song.cpp": '#include "song.h"\n'},
                     "src/catalogue/song.cpp:1: no file src/song.h: paths in quotes are relative to src/")

    def test_the_toolkit_stays_in_the_desktop(self):
        self.refused({"src/playlists/list.cpp": "#include <QString>\n"},
                     "src/playlists/list.cpp:1: playlists may not include <QString> (Qt)")

    def test_the_toolkit_stays_in_the_tests_of_the_desktop(self):
        self.refused({"tests/base/text_test.cpp": "#include <QTest>\n"},
                     "tests/base/text_test.cpp:1: tests/base may not include <QTest> (Qt)")

    def test_the_operating_system_stays_in_its_folder(self):
        self.refused({"src/base/text.cpp": "#include <sys/stat.h>\n"},
                     "src/base/text.cpp:1: base may not include <sys/stat.h> (POSIX)")

    def test_one_platform_does_not_use_what_another_has(self):
        self.refused({"src/platform/linux/other.cpp": "#include <windows.h>\n"},
                     "src/platform/linux/other.cpp:1: platform/linux may not include <windows.h> (Windows)")

    def test_no_file_asks_for_the_system(self):
        self.refused({"src/base/text.cpp": "#ifdef _WIN32\n#endif\n"},
                     "src/base/text.cpp:1: asks for the system it is compiled for: that is for the build to choose")

    def test_a_folder_needs_a_line_in_the_table(self):
        self.refused({"src/extra/thing.cpp": ""}, "src/extra/thing.cpp:1: its folder has no row in src/README.md")

    def test_a_line_of_the_table_needs_a_folder(self):
        self.refused({"src/README.md": TABLE + "| 6 | `main` | programs | | |\n"},
                     "src/README.md:11: there is no source in src/main")

    def test_a_permission_needs_a_use(self):
        self.refused({"src/playlists/list.h": ""}, "src/README.md:7: nothing in playlists includes catalogue")


    def test_only_the_windows_own_files_include_it(self):
        self.refused({"src/playlists/list.cpp": '#include "window/form1.h"\n'},
                     "src/playlists/list.cpp:1: only form1_*.cpp and app, desktop, main, scenario, window may include "
                     "window/form1.h")

    def test_a_rule_knows_no_control(self):
        self.refused({"src/playlists/rows.h": '#include "controls/list.h"\n'},
                     "src/playlists/rows.h:1: the header of a rule may not include a control")

    def test_a_procedure_may_not_call_upwards(self):
        self.refused({"src/window/form1_panels.cpp": "void Form1::open() {\n  scan();\n}\n"},
                     "src/window/form1_panels.cpp:2: window (level 2) may not call scan of catalogue (level 3)")

    def test_a_procedure_may_not_call_sideways_unless_the_table_says_so(self):
        self.refused({"src/catalogue/form1_artists.cpp": "void Form1::tick() {\n  form.play();\n}\n"},
                     "src/catalogue/form1_artists.cpp:2: catalogue (level 3) may not call play of playback (level 3)")

    def test_a_permission_to_call_needs_a_use(self):
        self.refused({"src/playlists/form1_keys.cpp": ""}, "src/README.md:7: nothing in playlists calls playback")

    def test_the_shell_names_no_control(self):
        self.refused({"src/desktop/canvas.cpp": 'auto* list = find("List1");\n'},
                     'src/desktop/canvas.cpp:1: names the control "List1": the shell takes controls by type')

    def test_the_build_names_no_missing_folder(self):
        self.refused({"src/CMakeLists.txt": "library(platform/amiga)\n"},
                     "src/CMakeLists.txt:1: there is no folder src/platform/amiga")


class Headers(Project):
    def test_a_header_that_depends_on_another_is_refused(self):
        status, said = self.run_on({"src/base/name.h": "inline std::string name;\n"}, "check-headers")
        self.assertEqual(status, 1)
        self.assertIn("src/base/name.h does not compile alone", said)

    def test_a_self_contained_header_is_accepted(self):
        status, said = self.run_on({"src/base/name.h": "#pragma once\n#include <string>\ninline std::string name;\n"},
                                   "check-headers")
        self.assertEqual((status, said), (0, "1 headers: 0 compiled alone by the build, 1 tried, 0 refused, 0 left out\n"))

    def test_a_header_that_its_source_includes_first_is_left_to_the_build(self):
        header = {"src/base/name.h": "inline std::string name;\n"}
        status, said = self.run_on(header | {"src/base/name.cpp": '// A name.\n#include "base/name.h"\n'}, "check-headers")
        self.assertEqual((status, said), (0, "1 headers: 1 compiled alone by the build, 0 tried, 0 refused, 0 left out\n"))
        status, _ = self.run_on(header | {"src/base/name.cpp": '#include <string>\n#include "base/name.h"\n'},
                                "check-headers")
        self.assertEqual(status, 1)


class Counting(unittest.TestCase):
    def count(self, cases, status="0"):
        with tempfile.NamedTemporaryFile("w", suffix=".xml") as report:
            report.write(f"<testsuite>{cases}</testsuite>")
            report.flush()
            done = subprocess.run([sys.executable, str(SCRIPTS / "count-tests"), report.name, status],
                                  stdout=subprocess.PIPE, stderr=subprocess.DEVNULL, text=True, check=False)
            return done.returncode, done.stdout

    RUN = '<testcase name="a" status="run"/>'

    def test_passed_and_failed_are_counted(self):
        self.assertEqual(self.count(self.RUN * 2 + '<testcase name="b" status="fail"><failure/></testcase>', "8"),
                         (1, "2 passed, 1 failed\n"))

    def test_a_test_whose_program_is_missing_has_failed(self):
        missing = '<testcase name="b" status="notrun"><skipped message="Unable to find executable"/></testcase>'
        self.assertEqual(self.count(self.RUN + missing, "8"), (1, "1 passed, 1 failed\n"))

    def test_a_skipped_test_is_no_failure(self):
        skipped = '<testcase name="b" status="notrun"><skipped message="SKIP_REGULAR_EXPRESSION_MATCHED"/></testcase>'
        self.assertEqual(self.count(self.RUN + skipped), (0, "1 skipped\n1 passed, 0 failed\n"))

    def test_an_aborted_run_has_failed(self):
        self.assertEqual(self.count(self.RUN, "139"), (1, "1 passed, 1 failed\n"))


if __name__ == "__main__":
    unittest.main()
