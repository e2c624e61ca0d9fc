#!/usr/bin/env python3
"""Proves that check_plugin.py sees what it is there to see."""

import unittest

import check_plugin

FACTORY = "getZORXInterface"


class CheckPlugin(unittest.TestCase):
    def exports(self, *names):
        return list(check_plugin.check_exports(names, FACTORY))

    def needed(self, *names, permitted=()):
        return list(check_plugin.check_needed(names, check_plugin.HOST_LIBRARIES | check_plugin.RUNTIME
                                              | set(permitted)))

    def test_the_factory_alone_is_right(self):
        self.assertEqual(self.exports(FACTORY), [])

    def test_a_missing_factory(self):
        self.assertEqual(self.exports(), ["does not export getZORXInterface"])

    def test_what_is_exported_besides(self):
        self.assertEqual(self.exports("_ZTI3ZOR", FACTORY, "_ZN1aE"),
                         ["exports _ZN1aE besides its factory", "exports _ZTI3ZOR besides its factory"])

    def test_host_libraries_and_runtime_are_right(self):
        self.assertEqual(self.needed("libZOR.so.5", "libZORBridgeLib.so.5", "libstdc++.so.6", "libgcc_s.so.1",
                                     "libm.so.6", "libc.so.6", "ld-linux-x86-64.so.2"), [])

    def test_a_library_of_somebody_else(self):
        self.assertEqual(self.needed("libc.so.6", "libsqlite3.so.0", "libZOther.so"),
                         ["needs libsqlite3.so.0, which is neither a host library nor the C++ runtime",
                          "needs libZOther.so, which is neither a host library nor the C++ runtime"])

    def test_a_library_that_is_permitted(self):
        self.assertEqual(self.needed("libasan.so.8", permitted=["libasan"]), [])


if __name__ == "__main__":
    unittest.main()
