"""Tests that are sentences: PROGRAM and SAMPLES on the command line, then the sentences to try.

    @test
    def a_length_is_kept(): ...        # the sentence ALengthIsKept

    if __name__ == "__main__":
        main()
"""

import sys

from drive import Failed

TESTS = {}


def test(function):
    words = function.__name__.split("_")
    TESTS["".join(word[:1].upper() + word[1:] for word in words)] = function
    return function


def main():
    failures = 0
    for sentence in sys.argv[3:]:
        try:
            TESTS[sentence]()
            print("passed", sentence)
        except Failed as failure:
            failures += 1
            print("FAILED {}: {}".format(sentence, failure))
    sys.exit(1 if failures or not sys.argv[3:] else 0)
