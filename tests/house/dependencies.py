"""Includes between the folders follow the drawing in docs/ARCHITECTURE.md, and it has no ring."""
import re

import house

DRAWING = 'docs/ARCHITECTURE.md'
ARROW = re.compile(r'^\s*(\w+)(?:\[[^\]]*\])?\s*-->\s*(\w+)(?:\[[^\]]*\])?\s*$', re.M)
INCLUDE = re.compile(r'^[ \t]*#[ \t]*(?:include|import)[ \t]*"([^"]+)"', re.M)
# plugin/ holds both ends of the plug-in: what the dialog finds first and what every panel stands on.
ROOMS = (('plugin/PlugIn.', 'entry'), ('plugin/Export.', 'shared'),
         ('plugin/PDEPluginCallback.', 'shared'))


def room(path):
    for start, name in ROOMS:
        if path.startswith(start):
            return name
    return path.split('/')[0]


def drawn_arrows(root):
    path = root / DRAWING
    found = re.search(r'```mermaid\n(.*?)```', path.read_text('utf-8'), re.S) if path.exists() else None
    return set(ARROW.findall(found.group(1))) if found else set()


def ring(arrows):
    """The rooms that cannot be put in an order."""
    left = {end for arrow in arrows for end in arrow}
    while True:
        last = {r for r in left if not any(a == r and b in left for a, b in arrows)}
        if not last:
            return left
        left -= last


def check(root):
    drawn = drawn_arrows(root)
    problems = [] if drawn else [f'{DRAWING} has no drawing of the dependencies']
    used = set()
    for name, text in house.code(root, house.OWN_FOLDERS):
        for match in INCLUDE.finditer(text):
            arrow = room(name), room(match.group(1))
            if arrow[0] == arrow[1]:
                continue
            used.add(arrow)
            if arrow not in drawn:
                problems.append(f'{name}:{house.line_of(text, match.start())}: {arrow[0]} --> '
                                f'{arrow[1]} is not in the drawing of {DRAWING}')
    rooms = {room(name) for name, _ in house.code(root, house.OWN_FOLDERS)}
    for arrow in sorted(drawn - used):
        if set(arrow) <= rooms:
            problems.append(f'{DRAWING}: {arrow[0]} --> {arrow[1]} is drawn, and nothing includes it')
    for name in sorted(ring(drawn)):
        problems.append(f'{DRAWING}: {name} is part of a ring')
    return problems


GOOD = {
    DRAWING: '```mermaid\nflowchart TD\n  entry[plugin: entry] --> pagesettings\n'
             '  pagesettings --> plugin\n  plugin --> shared\n```\n',
    'plugin/PlugIn.mm': '#include "pagesettings/Panel.h"\n',
    'pagesettings/Panel.h': '#include "plugin/BasePDE.h"\n',
    'plugin/BasePDE.h': '#include "plugin/Export.h"\n',
    'plugin/Export.h': '',
}
BAD = [
    ('an include against the arrows', {'plugin/BasePDE.mm': '#include "pagesettings/Panel.h"\n'}),
    ('an include that is not drawn', {'ppd/Titles.mm': '#include "pagesettings/Panel.h"\n'}),
    ('an arrow that nobody needs', {'plugin/BasePDE.h': ''}),
    ('a ring', {DRAWING: GOOD[DRAWING].replace('shared\n', 'shared\n  plugin --> entry\n'),
                'plugin/BasePDE.mm': '#include "plugin/PlugIn.h"\n'}),
    ('no drawing', {DRAWING: 'Nothing.\n'}),
]

if __name__ == '__main__':
    house.main(check, GOOD, BAD)
