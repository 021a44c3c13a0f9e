"""What the checks of the source tree share: finding files, reading code, and proving themselves.

A check is a function from the tree's root to a list of problems, and a list of bad examples: small
trees, each of which it must refuse.  main() runs the check on the tree, or, with --self-check, on a
good example and on every bad one.
"""
import argparse
import pathlib
import re
import sys
import tempfile

PLUGIN_FOLDERS = ('plugin', 'ppd', 'tape', 'pagesettings', 'textentry', 'diagnostics')
OWN_FOLDERS = PLUGIN_FOLDERS + ('platform', 'dialog')
NOT_OURS = {'.git', 'build', 'out', '__pycache__'}

_COMMENT_OR_TEXT = re.compile(
    r'//[^\n]*|/\*.*?\*/|R"(?P<mark>[^()\s\\]*)\(.*?\)(?P=mark)"|"(?:\\.|[^"\\\n])*"'
    r"|(?<![0-9A-Za-z_])'(?:\\.|[^'\\\n])+'", re.S)


def without_comments(text):
    """The code alone; line numbers stay."""
    def blank(match):
        found = match.group()
        return re.sub(r'[^\n]', ' ', found) if found.startswith(('//', '/*')) else found
    return _COMMENT_OR_TEXT.sub(blank, text)


def without_texts(code):
    """Code whose string and character literals are emptied; include lines are kept."""
    lines = code.split('\n')
    kept = {n: line for n, line in enumerate(lines) if re.match(r'\s*#\s*(include|import)\b', line)}
    emptied = _COMMENT_OR_TEXT.sub(
        lambda m: m.group()[0] + '\n' * m.group().count('\n') + m.group()[0], code).split('\n')
    for number, line in kept.items():
        emptied[number] = line
    return '\n'.join(emptied)


def files(root, folders=('',), endings=('',)):
    """Every file of ours below the folders, in a stable order."""
    for folder in folders:
        top = pathlib.Path(root, folder)
        for path in sorted(top.rglob('*')):
            parts = path.relative_to(root).parts
            if path.is_file() and not NOT_OURS & set(parts) and path.name.endswith(tuple(endings)):
                yield path


def code(root, folders, endings=('.cpp', '.hpp', '.mm', '.h')):
    """(path below the root, code without comments) of the sources."""
    for path in files(root, folders, endings):
        yield path.relative_to(root).as_posix(), without_comments(path.read_text('utf-8'))


def line_of(text, position):
    return text.count('\n', 0, position) + 1


def _write(root, tree):
    for name, text in tree.items():
        path = pathlib.Path(root, name)
        path.parent.mkdir(parents=True, exist_ok=True)
        path.write_text(text, 'utf-8')


def _self_check(check, good, bad, arguments):
    failures = []
    with tempfile.TemporaryDirectory() as folder:
        _write(folder, good)
        for problem in check(pathlib.Path(folder), *arguments):
            failures.append(f'the good example is refused: {problem}')
    for title, tree in bad:
        with tempfile.TemporaryDirectory() as folder:
            _write(folder, {**good, **tree})
            if not check(pathlib.Path(folder), *arguments):
                failures.append(f'not refused: {title}')
    if not bad:
        failures.append('there is no bad example')
    return failures


def main(check, good, bad):
    """good: file name to text.  bad: (title, files that are added to the good ones)."""
    parser = argparse.ArgumentParser()
    parser.add_argument('--self-check', action='store_true')
    parser.add_argument('root', type=pathlib.Path)
    parser.add_argument('more', nargs='*', type=pathlib.Path)
    arguments = parser.parse_args()
    if arguments.self_check:
        problems = _self_check(check, good, bad, arguments.more)
    else:
        problems = check(arguments.root.resolve(), *arguments.more)
    for problem in problems:
        print(problem)
    sys.exit(1 if problems else 0)
