"""The page of `tolvane run --html` in a browser."""

import json
import os
import subprocess
import tempfile
import time
import unittest
from pathlib import Path

from selenium import webdriver
from selenium.webdriver.chrome.service import Service
from selenium.webdriver.common.action_chains import ActionChains
from selenium.webdriver.common.by import By
from selenium.webdriver.common.keys import Keys

BUILD = Path(__file__).parents[2] / "build/dev"
FAULTY = BUILD / "tests/tools/libraries/libtools_faulty.so"
WIDTH, HEIGHT = 1200, 900
OPTIONS = """--headless --no-sandbox --disable-gpu --disable-quic --no-first-run
    --disable-background-networking --disable-component-update --disable-sync
    --hide-scrollbars""".split()
LIGHT_DIFFERS, DARK_DIFFERS = (0xE3, 0x10, 0x2C), (0xFF, 0x3B, 0x50)

# The pixels of a canvas. They are read from a copy: browsers complain of reading canvases that are
# drawn for people.
PIXELS = """
    function pixelsOf(id) {
        const canvas = document.getElementById(id);
        const copy = new OffscreenCanvas(canvas.width, canvas.height);
        const context = copy.getContext('2d', {willReadFrequently: true});
        context.drawImage(canvas, 0, 0);
        return context.getImageData(0, 0, canvas.width, canvas.height);
    }"""

# How many pixels have about this colour; any colour at all if it is null.
COUNT_PIXELS = PIXELS + """
    const [colour] = arguments;
    const {data} = pixelsOf('canvas');
    let count = 0;
    for (let i = 0; i < data.length; i += 4) {
        if (data[i + 3] === 0) continue;
        if (!colour || colour.every((value, j) => Math.abs(data[i + j] - value) < 12)) ++count;
    }
    return count;"""

HOSTILE_NAMES = [
    b"</script><script>document.title='taken'</script>",
    b"<!--<script>",
    b"<img/src=x/onerror=document.title='taken'>",
    b"\"quotes'`&amp;${1}{{data}}",
    b"\\u003c\\",
    b"bytes\xff\xfe\xc3",
    "🦴👍🏽".encode(),
    "عظمة".encode(),
    "turned\u202earound".encode(),
]


def rig(names, frames):
    """A chain of joints that swings, as BVH."""
    text, motion = b"HIERARCHY\n", b""
    for i, name in enumerate(names):
        text += (b"JOINT " if i else b"ROOT ") + name + b"\n{\nOFFSET 0 10 0\n"
        text += b"CHANNELS 3 Zrotation Xrotation Yrotation\n"
    text += b"End Site\n{\nOFFSET 0 10 0\n}\n" + b"}\n" * len(names)
    for frame in range(frames):
        motion += b" ".join([b"%d 0 0" % (frame % 40)] * len(names)) + b"\n"
    return text + b"MOTION\nFrames: %d\nFrame Time: 0.04\n" % frames + motion


class Page(unittest.TestCase):
    @classmethod
    def setUpClass(cls):
        cls.folder = tempfile.TemporaryDirectory()
        cls.addClassCleanup(cls.folder.cleanup)
        options = webdriver.ChromeOptions()
        options.binary_location = "/usr/bin/chromium"
        for option in OPTIONS + [f"--window-size={WIDTH},{HEIGHT}"]:
            options.add_argument(option)
        options.add_argument(f"--user-data-dir={cls.folder.name}/profile")
        options.set_capability("goog:loggingPrefs", {"browser": "ALL", "performance": "ALL"})
        cls.browser = webdriver.Chrome(service=Service("/usr/bin/chromedriver"), options=options)
        cls.addClassCleanup(cls.browser.quit)

    # ---- Making and opening pages ----

    def open(self, *arguments, fault="", name="page.html"):
        page = Path(self.folder.name, name)
        page.unlink(missing_ok=True)
        command = [BUILD / "bin/tolvane", "run", *arguments, "--html", page]
        if fault:
            command += ["--plugin", FAULTY]
        environment = {**os.environ, "TOLVANE_TEST_FAULT": fault}
        run = subprocess.run(command, env=environment, capture_output=True, text=True)
        self.assertEqual(run.returncode, 1 if fault else 0, run.stdout + run.stderr)
        self.forget_log()
        self.browser.get(page.as_uri())
        self.addCleanup(self.assert_quiet, page.as_uri())
        return page

    def forget_log(self):
        for kind in ("browser", "performance"):
            self.browser.get_log(kind)

    def assert_quiet(self, uri):
        """Nothing was complained of, and nothing was asked for but the page itself."""
        self.assertEqual(self.browser.get_log("browser"), [])
        messages = [json.loads(entry["message"])["message"] for entry in self.browser.get_log("performance")]
        # The browser's own first page may still be busy.
        requests = [
            message["params"]["request"]["url"]
            for message in messages
            if message["method"] == "Network.requestWillBeSent"
            and not message["params"]["documentURL"].startswith("chrome://")
        ]
        self.assertLessEqual(set(requests), {uri, "data:,"})
        self.assertIn(uri, requests)

    def write(self, name, content):
        path = Path(self.folder.name, name)
        path.write_bytes(content)
        return path

    # ---- Looking and acting ----

    def element(self, selector):
        return self.browser.find_element(By.CSS_SELECTOR, selector)

    def texts(self, selector):
        return [found.text for found in self.browser.find_elements(By.CSS_SELECTOR, selector)]

    def frame(self):
        return int(self.element("#frame").text.split()[1])

    def press(self, *keys):
        ActionChains(self.browser).send_keys(*keys).perform()

    def pixels(self, colour=None):
        """How many have about this colour, once what was asked for has been drawn."""
        self.browser.execute_async_script(
            "const done = arguments[0]; requestAnimationFrame(() => requestAnimationFrame(() => done()));"
        )
        return self.browser.execute_script(COUNT_PIXELS, colour)

    def image(self):
        self.pixels()
        return self.browser.execute_script(PIXELS + "return pixelsOf('canvas').data.join();")

    def wait_for(self, condition):
        for _ in range(100):
            if condition():
                return
            time.sleep(0.05)
        self.fail("waited for too long")

    # ---- What the page shows ----

    def test_shows_the_walk_that_came_back_in_a_small_file(self):
        page = self.open()
        self.assertLess(page.stat().st_size, 2_000_000)
        self.assertEqual(self.browser.title, "walk.bvh")
        self.assertEqual(self.element("h1").text, "walk.bvh")
        self.assertIn("31 joints · 60 frames at 30 per second", self.element("#about").text)
        self.assertIn("PASSED", self.element("#verdict").text)
        self.assertFalse(self.element("#differences").is_displayed())
        self.assertFalse(self.element("#thinned").is_displayed())
        self.assertGreater(self.pixels(), 1000)
        self.assertEqual(self.pixels(LIGHT_DIFFERS), 0)
        self.assertIn("array<Rigging::Module::Pins>", self.texts("#types th"))
        self.assertEqual(set(self.texts("#types td:last-child")), {"0"})

    def test_moves_on_keys(self):
        self.open()
        before = self.image()
        self.assertEqual(self.frame(), 0)
        self.press(Keys.ARROW_RIGHT, Keys.ARROW_RIGHT, Keys.ARROW_RIGHT)
        self.assertEqual(self.frame(), 3)
        self.assertNotEqual(self.image(), before)
        self.press(Keys.ARROW_LEFT)
        self.assertEqual(self.frame(), 2)
        self.press(Keys.END, Keys.ARROW_RIGHT)
        self.assertEqual(self.frame(), 59)
        self.press(Keys.HOME, Keys.ARROW_LEFT)
        self.assertEqual(self.frame(), 0)
        self.assertEqual(self.image(), before)

    def test_plays_and_pauses(self):
        self.open()
        play = self.element("#play")
        self.assertEqual(play.get_attribute("aria-label"), "Play")
        self.press(Keys.SPACE)
        self.wait_for(lambda: self.frame() > 5)
        self.assertEqual(play.get_attribute("aria-label"), "Pause")
        play.click()
        stopped = self.frame()
        time.sleep(0.3)
        self.assertEqual(self.frame(), stopped)
        self.assertEqual(play.get_attribute("aria-label"), "Play")
        # The button has the focus now, and must not play twice.
        self.press(Keys.SPACE)
        self.wait_for(lambda: self.frame() != stopped)

    def test_plays_at_half_and_full_speed(self):
        self.open(self.write("long.bvh", rig([b"a", b"b"], 2000)), "--fps", "25")

        def frames_in_a_second(speed):
            self.element(f"[data-speed='{speed}']").click()
            self.assertEqual(self.element(f"[data-speed='{speed}']").get_attribute("aria-pressed"), "true")
            self.press(Keys.HOME)
            return self.browser.execute_async_script(
                """const done = arguments[0], start = performance.now();
                document.getElementById('play').click();
                setTimeout(() => {
                    document.getElementById('play').click();
                    done(state.index * 1000 / (performance.now() - start));
                }, 1000);"""
            )

        self.assertAlmostEqual(frames_in_a_second("1"), 25, delta=5)
        self.assertAlmostEqual(frames_in_a_second("0.5"), 12.5, delta=4)

    def test_scrubs(self):
        self.open()
        slider = self.element("#slider")
        ActionChains(self.browser).move_to_element(slider).click().perform()
        self.assertAlmostEqual(self.frame(), 30, delta=2)
        self.assertIn("frame", slider.get_attribute("aria-valuetext"))
        self.press(Keys.ARROW_RIGHT)
        self.assertAlmostEqual(self.frame(), 31, delta=2)

    def test_turns_and_zooms(self):
        self.open()
        canvas = self.element("#canvas")
        first = self.image()
        ActionChains(self.browser).drag_and_drop_by_offset(canvas, 120, 40).perform()
        turned = self.image()
        self.assertNotEqual(turned, first)
        self.browser.execute_script(
            "arguments[0].dispatchEvent(new WheelEvent('wheel', {deltaY: -300, cancelable: true}))", canvas
        )
        zoomed = self.image()
        self.assertNotEqual(zoomed, turned)
        self.element("[data-view=front]").click()
        front = self.image()
        self.element("[data-view=side]").click()
        self.assertNotIn(self.image(), (front, zoomed))

    def test_names_the_joint_that_is_pointed_at(self):
        self.open()
        x, y = self.browser.execute_script("draw(); return drawnJoints[data.joints.indexOf('LeftHand')].slice(0, 2);")
        canvas = self.element("#canvas")
        size = canvas.size
        ActionChains(self.browser).move_to_element_with_offset(
            canvas, round(x - size["width"] / 2), round(y - size["height"] / 2)
        ).perform()
        self.assertEqual(self.element("#hover").text, "LeftHand")

    def test_has_controls_that_say_what_they_are(self):
        self.open(fault="writes a wrong name")
        for button in self.browser.find_elements(By.CSS_SELECTOR, "button, input"):
            self.assertTrue(button.accessible_name, button.get_attribute("outerHTML"))
        # All of them can be reached by keys.
        seen = set()
        for _ in range(40):
            self.press(Keys.TAB)
            seen.add(self.browser.switch_to.active_element.get_attribute("outerHTML"))
        for button in self.browser.find_elements(By.CSS_SELECTOR, "button, input"):
            self.assertIn(button.get_attribute("outerHTML"), seen)

    # ---- What differs ----

    def test_shows_a_wrong_value_in_red(self):
        self.open(fault="writes a wrong name")
        self.assertIn("FAILED", self.element("#verdict").text)
        self.assertEqual(self.texts("#joints .joint bdi"), ["Hips"])
        self.assertEqual(self.texts("#joints .rows button"), ["0–59"])
        self.assertIn("outPins.names[0]", self.element("#joints .detail").text)
        self.assertIn("wrong", self.element("#joints .detail").text)
        self.assertGreater(self.pixels(LIGHT_DIFFERS), 60)
        self.assertIn("60", self.texts("#types .bad"))

    def test_goes_to_the_frame_and_the_joint_that_is_clicked(self):
        self.open(fault="moves a joint for a while")
        name = self.browser.execute_script("return data.joints[12];")
        self.assertEqual(self.texts("#joints .joint bdi"), [name])
        self.assertEqual(self.texts("#joints .rows button"), ["10–19"])
        self.assertEqual(self.pixels(LIGHT_DIFFERS), 0)
        self.element("#joints .rows button").click()
        self.assertEqual(self.frame(), 10)
        self.assertGreater(self.pixels(LIGHT_DIFFERS), 60)
        self.assertEqual(self.browser.execute_script("return data.joints[state.selected];"), name)
        # Where it came back is away from where it went in.
        apart = """const [i] = arguments, wentIn = positionsThatWentIn(i), back = positionsThatCameBack(i);
            return back[36] - wentIn[36];"""
        self.assertAlmostEqual(self.browser.execute_script(apart, 10), 30, places=3)
        self.assertEqual(self.browser.execute_script(apart, 9), 0)
        self.press(Keys.HOME)
        self.assertEqual(self.pixels(LIGHT_DIFFERS), 0)
        self.element("#joints .joint").click()
        self.assertEqual(self.frame(), 10)

    def test_marks_the_frames_that_differ_on_the_timeline(self):
        self.open(fault="moves a joint for a while")
        marked = self.browser.execute_script(
            PIXELS
            + """const {data, width} = pixelsOf('marks'), at = [];
            for (let i = 0; i < width; ++i) if (data[4 * i + 3] > 0) at.push(i / width);
            return [at[0], at[at.length - 1]];"""
        )
        self.assertAlmostEqual(marked[0], 10 / 60, delta=0.02)
        self.assertAlmostEqual(marked[1], 20 / 60, delta=0.02)

    def test_says_that_a_port_as_a_whole_is_wrong(self):
        self.open(fault="refuses to write")
        self.assertEqual(self.texts("#joints .joint bdi"), ["Of no single joint"])
        self.element("#joints .joint").click()
        self.assertEqual(self.frame(), 0)

    # ---- All kinds of rigs ----

    def test_thins_long_animations_and_says_so(self):
        joints = [b"joint%d" % i for i in range(40)]
        page = self.open(self.write("long.bvh", rig(joints, 9000)))
        self.assertLess(page.stat().st_size, 4_000_000)
        self.assertIn("of 9,000 frames, one in 3", self.element("#thinned").text)
        self.press(Keys.ARROW_RIGHT)
        self.assertEqual(self.frame(), 3)
        self.press(Keys.END)
        self.assertEqual(self.frame(), 8999)

    def test_shows_hostile_names_and_runs_none(self):
        file = self.write("hostile.bvh", rig(HOSTILE_NAMES, 5))
        self.open(file, fault="writes a wrong name")
        shown = self.browser.execute_script("return data.joints;")
        for name, text in zip(HOSTILE_NAMES, shown):
            self.assertEqual(text, name.decode(errors="replace"))
        self.assertEqual(self.texts("#joints .joint bdi"), [HOSTILE_NAMES[0].decode()])
        self.assertEqual(self.browser.title, "hostile.bvh")
        self.assertGreater(self.pixels(), 1000)

    def test_shows_a_file_whose_name_is_markup(self):
        self.open(self.write("<b>&'{{data}}.bvh", rig([b"a", b"b"], 2)), name="plain.html")
        self.assertEqual(self.browser.title, "<b>&'{{data}}.bvh")
        self.assertEqual(self.element("h1").text, "<b>&'{{data}}.bvh")

    def test_shows_a_single_frame_and_a_single_joint(self):
        self.open(self.write("one.bvh", rig([b"a"], 1)))
        self.assertEqual(self.frame(), 0)
        self.press(Keys.ARROW_RIGHT, Keys.SPACE)
        self.assertEqual(self.element("#play").get_attribute("aria-label"), "Play")
        self.assertGreater(self.pixels(), 100)

    def test_plays_a_run_in_which_joints_come_and_go(self):
        self.open("--churn")
        self.press(Keys.ARROW_RIGHT)
        self.assertEqual(self.frame(), 4)
        self.press(Keys.END)
        self.assertEqual(self.frame(), 56)

    # ---- On all kinds of screens ----

    def emulate(self, command, **parameters):
        self.browser.execute_cdp_cmd(f"Emulation.{command}", parameters)

    def test_follows_the_colour_scheme(self):
        self.open(fault="writes a wrong name")
        light = self.browser.execute_script("return getComputedStyle(document.body).backgroundColor;")
        self.assertGreater(self.pixels(LIGHT_DIFFERS), 60)
        self.emulate("setEmulatedMedia", features=[{"name": "prefers-color-scheme", "value": "dark"}])
        self.addCleanup(self.emulate, "setEmulatedMedia", features=[])
        dark = self.browser.execute_script("return getComputedStyle(document.body).backgroundColor;")
        self.assertNotEqual(light, dark)
        self.assertGreater(self.pixels(DARK_DIFFERS), 60)
        self.assertEqual(self.pixels(LIGHT_DIFFERS), 0)

    def test_fits_a_small_screen(self):
        self.open(fault="writes a wrong name")
        self.emulate("setDeviceMetricsOverride", width=360, height=720, deviceScaleFactor=2, mobile=True)
        self.addCleanup(self.emulate, "clearDeviceMetricsOverride")
        self.wait_for(lambda: self.browser.execute_script("return innerWidth;") == 360)
        self.assertLessEqual(self.browser.execute_script("return document.documentElement.scrollWidth;"), 360)
        for button in self.browser.find_elements(By.CSS_SELECTOR, ".controls button, .views button"):
            box = button.rect
            self.assertLessEqual(box["x"] + box["width"], 360)
        self.assertGreater(self.pixels(), 1000)


if __name__ == "__main__":
    unittest.main(verbosity=2)
