"""Every <font> of an interface file has a size: without one a random size is drawn, or a crash."""
import re
import xml.etree.ElementTree

import house


def check(root):
    problems = []
    for path in house.files(root, ('',), ('.xib',)):
        name = path.relative_to(root).as_posix()
        try:
            tree = xml.etree.ElementTree.parse(path)
        except xml.etree.ElementTree.ParseError as error:
            problems.append(f'{name}: {error}')
            continue
        for font in tree.iter('font'):
            if not re.fullmatch(r'[1-9][0-9]*(\.[0-9]+)?', font.get('size', '')):
                problems.append(f'{name}: <font {font.attrib}> has no size')
    return problems


GOOD = {'resources/A.xib': '<document><font key="font" metaFont="system" size="11"/></document>'}
BAD = [
    ('no size', {'resources/B.xib': '<document><a><font metaFont="system"/></a></document>'}),
    ('size nought', {'resources/B.xib': '<document><font size="0"/></document>'}),
    ('an empty size', {'dialog/B.xib': '<document><font size=""/></document>'}),
    ('damaged XML', {'resources/B.xib': '<document><font size="11">'}),
]

if __name__ == '__main__':
    house.main(check, GOOD, BAD)
