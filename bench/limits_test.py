#!/usr/bin/env python3
"""The table of limits marks what is missed, and only that."""

import contextlib
import io
import pathlib
import tempfile
import unittest

import document as page
import whole_life
from limits import Limits


def table_of(limits):
    output = io.StringIO()
    with contextlib.redirect_stdout(output):
        missed = limits.print_table()
    return missed, output.getvalue().splitlines()[2:]


class LimitsTest(unittest.TestCase):
    def test_value_above_its_limit_is_missed(self):
        limits = Limits()
        limits.add("below", 1.9, 2)
        limits.add("above", 2.1, 2)
        self.assertEqual(table_of(limits),
                         (1, ["| below | 1.9 | 2 |  |", "| above | 2.1 | 2 | missed |"]))

    def test_limit_within_the_spread_is_not_missed(self):
        limits = Limits()
        limits.add("within", 2.1, 2, 1.9)
        limits.add("outside", 2.3, 2, 2.1)
        self.assertEqual(table_of(limits)[0], 1)

    def test_growth_is_that_of_each_thing(self):
        limits = Limits()
        limits.add_growth({"find group/100": 10, "find group/10000": 21,
                           "save values/10": 100, "save values/200": 3800},
                          [("find group", 100, 10000, False), ("save values", 10, 200, True)])
        self.assertEqual(table_of(limits), (1, [
            "| find group: 10,000 beside 100 | 2.1 | 2 | missed |",
            "| save values, each: 200 beside 10 | 1.9 | 2 |  |"]))

    def test_operation_that_is_not_counted_ends_the_run(self):
        with self.assertRaises(KeyError):
            Limits().add_growth({"find group/100": 10})

    def test_comparison_is_one_of_those_that_are_counted(self):
        limits = Limits()
        for count in (1_500_000, 1_501_000, 2_201_000):
            limits.add_comparison({"compare records of five members/1000": count})
        row = "| compare records of five members, instructions |"
        self.assertEqual(table_of(limits), (1, [
            f"{row} 1,500 | 1,500 |  |", f"{row} 1,501 | 1,500 | accepted up to 2,200 |",
            f"{row} 2,201 | 1,500 | missed |"]))

    def test_memory_is_read_from_the_report(self):
        limits = Limits()
        limits.add_memory("features                10000\noption                  181 bytes\n"
                          "  a list of 2,000 in it 716.8 bytes\n")
        self.assertEqual(table_of(limits), (1, [
            "| memory of option, bytes | 181 | 180 | missed |",
            "| memory of a list of 2,000 in it, bytes | 717 | 1,229 |  |"]))

    def test_hand_written_outputs_are_the_yardstick(self):
        limits = Limits()
        limits.add_hand_written({"serialize PostScript/1000": 300, "serialize PJL/1000": 240,
                                 "write PostScript by hand/1000": 100,
                                 "serialize ticket/1000": 499, "write ticket by hand/1000": 100})
        self.assertEqual(table_of(limits)[0], 1)

    def test_whole_lives_are_limited_by_the_lower_end_of_their_ratios(self):
        limits = Limits()
        for name, ours in (("kept", [1.0, 1.3, 1.3]), ("missed", [1.3, 1.3, 1.3])):
            sides = whole_life.Run(["a"]), whole_life.Run(["b"])
            sides[0].times, sides[1].times = ours, [2.0, 2.0, 2.0]
            with contextlib.redirect_stdout(io.StringIO()):
                whole_life.print_pair(name, *sides, 0.6, 0, None, limits)
        self.assertEqual(table_of(limits), (1, ["| kept: time | 0.65 | 0.6 |  |",
                                                "| missed: time | 0.65 | 0.6 | missed |"]))


class DocumentTest(unittest.TestCase):
    def test_tables_replace_what_follows_the_mark(self):
        with tempfile.TemporaryDirectory() as folder:
            document = pathlib.Path(folder) / "page.md"
            document.write_text(f"Head.\n\n{page.MARK}\n\nOld.\n")
            page.update(document, "New.\n")
            self.assertEqual(document.read_text(), f"Head.\n\n{page.MARK}\n\nNew.\n")

    def test_document_without_the_mark_is_left_alone(self):
        with tempfile.TemporaryDirectory() as folder:
            document = pathlib.Path(folder) / "page.md"
            document.write_text("Head.\n")
            with self.assertRaises(SystemExit):
                page.update(document, "New.\n")
            self.assertEqual(document.read_text(), "Head.\n")


if __name__ == "__main__":
    unittest.main()
