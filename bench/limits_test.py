#!/usr/bin/env python3
"""The table of limits marks what is missed, and only that."""

import contextlib
import io
import unittest

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
                           "save values/100": 100, "save values/10000": 19000})
        self.assertEqual(table_of(limits), (1, [
            "| find group: 10,000 beside 100 | 2.1 | 2 | missed |",
            "| save values: 10,000 beside 100 | 1.9 | 2 |  |"]))

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


if __name__ == "__main__":
    unittest.main()
