"""Every word of the dialog is translated into every language, with the same places to fill.

The words are those that the sources hand to tr() and localized(), as dialog/language/update finds
them.
"""
import ast
import pathlib
import re
import subprocess
import tempfile

import house

LANGUAGES = ('de', 'es', 'fr', 'it', 'ja', 'ko', 'nl', 'pt', 'zh_CN', 'zh_TW')
UPDATE = 'dialog/language/update'


def entries(text):
    """msgid to msgstr of a catalogue, None for one that is marked as doubtful."""
    found = {}
    for block in re.split(r'\n\s*\n', text):
        if re.search(r'^#~', block, re.M):
            continue
        parts = {}
        for key, literals in re.findall(r'^(msgid|msgstr)((?:\s+"(?:\\.|[^"\\])*")+)', block, re.M):
            pieces = re.findall(r'"(?:\\.|[^"\\])*"', literals)
            parts[key] = ''.join(ast.literal_eval(piece) for piece in pieces)
        if parts.get('msgid'):
            doubtful = re.search(r'^#,.*\bfuzzy\b', block, re.M)
            found[parts['msgid']] = None if doubtful else parts.get('msgstr', '')
    return found


def places(text):
    return sorted(re.findall(r'\{[1-9]\}', text))


def check(root):
    with tempfile.TemporaryDirectory() as folder:
        words = pathlib.Path(folder, 'words')
        done = subprocess.run(['bash', str(root / UPDATE), '--words', str(words)],
                              capture_output=True, text=True)
        if done.returncode != 0:
            return [f'{UPDATE}: {done.stderr}']
        wanted = entries(words.read_text('utf-8'))
    problems = [] if wanted else ['no words were found']
    for language in LANGUAGES:
        path = root / f'dialog/language/{language}.po'
        name = path.relative_to(root).as_posix()
        if not path.is_file():
            problems.append(f'{name} is missing')
            continue
        translated = entries(path.read_text('utf-8'))
        for english in wanted:
            text = translated.get(english)
            if not text:
                problems.append(f'{name}: not translated: {english!r}')
            elif places(text) != places(english):
                problems.append(f'{name}: other places than {english!r}: {text!r}')
        problems += [f'{name}: no longer used: {english!r}'
                     for english in translated if english not in wanted]
    return problems


HEADER = 'msgid ""\nmsgstr "Content-Type: text/plain; charset=UTF-8\\n"\n\n'


def catalogue(*pairs):
    return HEADER + '\n'.join(f'msgid "{english}"\nmsgstr "{text}"\n' for english, text in pairs)


SOURCE = 'const char* a() { return tr("Tape:"); } auto b() { return tr("{1} of {2}"); }\n'
RIGHT = catalogue(('Tape:', 'Band:'), ('{1} of {2}', '{2}: {1}'))
GOOD = {
    UPDATE: pathlib.Path(__file__).parents[2].joinpath(UPDATE).read_text('utf-8'),
    'dialog/A.cpp': SOURCE,
    **{f'dialog/language/{language}.po': RIGHT for language in LANGUAGES},
}
BAD = [
    ('a new word', {'dialog/B.mm': 'id c() { return localized("Paper:"); }\n'}),
    ('an empty translation',
     {'dialog/language/de.po': catalogue(('Tape:', ''), ('{1} of {2}', '{2}: {1}'))}),
    ('a place lost',
     {'dialog/language/ja.po': catalogue(('Tape:', 'Band:'), ('{1} of {2}', '{2}'))}),
    ('a doubtful translation',
     {'dialog/language/it.po': RIGHT.replace('msgid "Tape:"', '#, fuzzy\nmsgid "Tape:"')}),
    ('a word that is gone',
     {'dialog/language/fr.po': RIGHT + catalogue(('Old', 'Vieux')).replace(HEADER, '\n')}),
]

if __name__ == '__main__':
    house.main(check, GOOD, BAD)
