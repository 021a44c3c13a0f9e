"""Every test has exactly one kind, and every test source is part of a test program."""
import json
import re
import subprocess

import house

KINDS = {'rules', 'display', 'cupsd'}


def registered(build):
    shown = subprocess.run(['ctest', '--show-only=json-v1'], cwd=build, check=True,
                           capture_output=True, text=True)
    return json.loads(shown.stdout)


def check(root, build=None):
    tests = registered(build) if build else json.loads((root / 'tests.json').read_text())
    problems = [] if tests['tests'] else ['there are no tests']
    for test in tests['tests']:
        labels = {label for prop in test.get('properties', []) if prop['name'] == 'LABELS'
                  for label in prop['value']}
        if len(labels & KINDS) != 1:
            problems.append(f'{test["name"]}: labelled {sorted(labels)}, not one of {sorted(KINDS)}')
    lists = '\n'.join(p.read_text('utf-8') for p in house.files(root, ('tests',), ('CMakeLists.txt',)))
    for path in house.files(root, ('tests',), ('_test.cpp', '_test.mm')):
        if not re.search(r'(?<![\w.])' + re.escape(path.name) + r'(?![\w.])', lists):
            problems.append(f'{path.relative_to(root)}: no test program is made of it')
    return problems


def _tests(labels):
    properties = [{'name': 'LABELS', 'value': labels}] if labels else []
    return {'tests.json': json.dumps({'tests': [{'name': 'A', 'properties': properties}]})}


GOOD = {**_tests(['rules']), 'tests/tape/CMakeLists.txt': 'rule_test(Units_test Units_test.cpp)\n',
        'tests/tape/Units_test.cpp': ''}
BAD = [
    ('no label', _tests([])),
    ('an unknown label', _tests(['quick'])),
    ('two kinds', _tests(['rules', 'display'])),
    ('no tests', {'tests.json': '{"tests": []}'}),
    ('a source that is not built', {'tests/tape/Info_test.mm': ''}),
]

if __name__ == '__main__':
    house.main(check, GOOD, BAD)
