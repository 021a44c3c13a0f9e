"""The tree speaks for itself: it points to no paper and no machine that its reader does not have."""
import re

import house

# Spelled so that this file does not find itself.
REFUSED = re.compile(
    r'\bspeci[f]ications?\b|\b(?:the|this|our) spe[c]\b|\bspe[c]\.md\b'
    r'|\bParts? [1-6][.][1-6]\b|\bParts [1-6]\b|\bthe contra[c]t\b'
    r'|(?<![\w.])/(?:w[o]rk|Users|tmp/[b]rief)/|(?<![\w.])/home/[a-z]|\.\./sh[a]red\b'
    r'|\bTO[D]O\b|\bFIX[M]E\b|\bX[X]X\b|^<{7} |^>{7} ', re.I | re.M)
CASED = re.compile(r'X[X]X')


def check(root):
    problems = []
    for path in house.files(root):
        name = path.relative_to(root).as_posix()
        if re.search(r'\bspe[c]\b', name, re.I):
            problems.append(f'{name}: the name')
        try:
            text = path.read_text('utf-8')
        except UnicodeDecodeError:
            continue
        for match in REFUSED.finditer(text):
            if match.group().upper() == 'X' * 3 and not CASED.fullmatch(match.group()):
                continue
            problems.append(f'{name}:{house.line_of(text, match.start())}: "{match.group()}"')
    return problems


GOOD = {'README.md': 'A specific part of 1.5 mm; see docs/ARCHITECTURE.md and /etc/cups/ppd.\n',
        '.git/x': 'TO' + 'DO\n', 'build/y': 'TO' + 'DO\n'}
BAD = [(text, {'tape/Bad.hpp': f'// {text}\n'}) for text in (
    'as the speci' + 'fication says', 'see spec' + '.md', 'the spe' + 'c', 'Par' + 't 4.2',
    'Par' + 'ts 4 and 5', 'the con' + 'tract', '/wo' + 'rk/main/tape', '/ho' + 'me/anna/tape',
    '../sha' + 'red/facts', 'TO' + 'DO: later', 'FIX' + 'ME')]
BAD.append(('a file name', {'docs/spe' + 'c.txt': 'x\n'}))
BAD.append(('a merge left over', {'README.md': '<' * 7 + ' HEAD\n'}))

if __name__ == '__main__':
    house.main(check, GOOD, BAD)
