"""The plug-in's sources compile while the toolkit hides what only it has.

Takes the build folder, whose compile commands are used as they are.
"""
import concurrent.futures
import json
import os
import pathlib
import shlex
import subprocess

import house


def commands(build, root):
    """Path below the root to (folder, command without its output)."""
    result = {}
    for entry in json.loads((build / 'compile_commands.json').read_text()):
        path = pathlib.Path(entry['file'])
        if not path.is_relative_to(root):
            continue
        name = path.relative_to(root).as_posix()
        if name.split('/')[0] in house.PLUGIN_FOLDERS:
            words = shlex.split(entry['command'])
            del words[words.index('-o'):words.index('-o') + 2]
            result[name] = entry['directory'], words
    return result


def compile_hidden(folder, words, source=None):
    words = words[:]
    if source:
        words[words.index('-c') + 1] = str(source)
    run = subprocess.run(words + ['-DNO_GNUSTEP=1', '-fsyntax-only'], cwd=folder,
                         capture_output=True, text=True)
    return run.returncode, run.stderr


def check(root, build, real_root=None):
    """With real_root, the sources below root are compiled with that tree's flags."""
    known = commands(build, real_root or root)
    problems = []
    jobs = []
    for path in house.files(root, house.PLUGIN_FOLDERS, ('.cpp', '.mm')):
        name = path.relative_to(root).as_posix()
        alike = next((k for k in known if k.endswith(path.suffix)), None) if real_root else name
        if alike not in known:
            problems.append(f'{name}: the build does not compile it')
        else:
            jobs.append((name, *known[alike], path if real_root else None))
    if not jobs:
        problems.append('there is nothing to compile')
    with concurrent.futures.ThreadPoolExecutor(os.cpu_count()) as pool:
        for job, (status, errors) in zip(jobs, pool.map(lambda j: compile_hidden(*j[1:]), jobs)):
            if status != 0:
                problems.append(f'{job[0]}:\n{errors}')
    return problems


GOOD = {'plugin/Good.mm': '#include <AppKit/AppKit.h>\n'
                          'NSString* name(NSString* text) { return [text lowercaseString]; }\n'}
BAD = [
    ('a method of this toolkit alone',
     {'plugin/Bad.mm': '#include <AppKit/AppKit.h>\n'
                       'NSString* name(NSString* text) { return [text stringByTrimmingSpaces]; }\n'}),
    ('a rule that does not compile', {'tape/Bad.cpp': 'int f() { return nil; }\n'}),
]

if __name__ == '__main__':
    house.main(check, GOOD, BAD)
