"""The plain C++ rules and the tests that need nothing else, for the scripts that measure tests."""

RULE_FOLDERS = ("plugin", "ppd", "tape", "pagesettings", "textentry", "diagnostics")
# Of the platform, whose other sources need the toolkit.
PLATFORM_RULES = ("FieldEdit", "PageRange", "PropertyListXML", "StringEncodings", "SystemVersion",
                  "UriScheme")


def rule_sources(root):
    """The .cpp files of the rules."""
    return ([path for folder in RULE_FOLDERS for path in sorted((root / folder).glob("*.cpp"))]
            + [root / "platform" / (name + ".cpp") for name in PLATFORM_RULES])


def rule_tests(root):
    """The tests that link with the rules and GoogleTest alone."""
    return ([path for folder in RULE_FOLDERS
             for path in sorted((root / "tests" / folder).glob("*_test.cpp"))]
            + [root / "tests" / "platform" / (name + "_test.cpp")
               for name in PLATFORM_RULES + ("NumberConversion",)])
