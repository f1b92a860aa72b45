"""What scripts/bench makes of its measurements: medians, goals, and excessive instruction counts."""

import sys
import unittest
from pathlib import Path

sys.dont_write_bytecode = True
sys.path.insert(0, str(Path(__file__).parents[2] / "benchmarks"))
import instructions
import report


def run(name, ratio, ns=1.0):
    return {"run_type": "iteration", "name": name + "/min_time:0.020/repeats:9/manual_time",
            "ratio": ratio, "ns": ns, "referenceNs": 1.0}


def figure(name, *ratios):
    aggregate = {"run_type": "aggregate", "name": name, "ratio": 99.0}
    raw = {"benchmarks": [run(name, ratio) for ratio in ratios] + [aggregate]}
    (made,) = report.figures_of(raw)
    return made


class BenchFigures(unittest.TestCase):
    def test_a_figure_is_the_median_of_its_repetitions_with_their_spread(self):
        made = figure("start/registry", 3.0, 1.0, 2.0, 9.0, 2.5)
        self.assertEqual((made["ratio"], made["least"], made["most"], made["pairs"]), (2.5, 1, 9, 5))
        self.assertEqual(made["name"], "start/registry")

    def test_the_goal_is_wider_for_few_elements(self):
        self.assertTrue(figure("floor/Pins/read/10", 1.4)["met"])
        self.assertFalse(figure("floor/Pins/read/100", 1.4)["met"])
        self.assertTrue(figure("floor/Pins/read/100", 1.1)["met"])

    def test_the_ratio_of_an_alternative_meets_its_goal_if_it_is_large(self):
        self.assertFalse(figure("JSON instead/100 joints", 19.9)["met"])
        self.assertTrue(figure("JSON instead/100 joints", 20.0)["met"])

    def test_a_figure_without_a_goal_is_neither_met_nor_missed(self):
        self.assertIsNone(figure("dispatch/reader by name", 7.0)["met"])

    def test_figures_of_reading_and_writing_are_drawn(self):
        figures = [figure(f"floor/array<Rigging::Module::Pins>/{operation}/{size}", 1.0)
                   for operation in ("read", "in place") for size in (1, 10)]
        picture = report.plot(figures)
        self.assertIn(">array&lt;Pins&gt;, in place</text>", picture)
        self.assertTrue(picture.endswith("</svg>\n"))


class BenchInstructionCounts(unittest.TestCase):
    def test_up_to_three_per_cent_more_instructions_are_accepted(self):
        self.assertTrue(instructions.compare({"read": 1000}, {"read": 1030})[1])
        self.assertFalse(instructions.compare({"read": 1000}, {"read": 1031})[1])
        self.assertTrue(instructions.compare({"read": 1000}, {"read": 10})[1])

    def test_the_operation_with_too_many_instructions_is_named(self):
        lines, holds = instructions.compare({"read": 1000, "write": 1000},
                                            {"read": 2000, "write": 1000})
        self.assertFalse(holds)
        self.assertEqual(["too many" in line for line in lines], [True, False])

    def test_another_set_of_operations_is_refused(self):
        self.assertFalse(instructions.compare({"read": 1}, {"read": 1, "write": 1})[1])
        self.assertFalse(instructions.compare({"read": 1, "write": 1}, {"read": 1})[1])


if __name__ == "__main__":
    unittest.main()
