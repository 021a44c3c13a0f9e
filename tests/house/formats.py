"""What is used as a format is written down in the source: never a text from a PPD or a user.

The compiler checks printf and its like; it checks neither the alert functions nor most methods.
"""
import re

import house

# Function: which argument is the format (from 0).
FUNCTIONS = {
    'NSLog': 0, 'NSLogv': 0,
    'NSRunAlertPanel': 1, 'NSRunInformationalAlertPanel': 1, 'NSRunCriticalAlertPanel': 1,
    'NSGetAlertPanel': 1, 'NSGetInformationalAlertPanel': 1, 'NSGetCriticalAlertPanel': 1,
    'NSBeginAlertSheet': 9, 'NSBeginInformationalAlertSheet': 9, 'NSBeginCriticalAlertSheet': 9,
    'CFStringCreateWithFormat': 2, 'CFStringAppendFormat': 2,
    'printf': 0, 'vprintf': 0, 'fprintf': 1, 'vfprintf': 1, 'dprintf': 1, 'sprintf': 1,
    'vsprintf': 1, 'snprintf': 2, 'vsnprintf': 2, 'asprintf': 1, 'syslog': 1, 'vsyslog': 1,
}
METHOD = re.compile(
    r'\b(stringWithFormat|localizedStringWithFormat|initWithFormat|appendFormat'
    r'|stringByAppendingFormat|predicateWithFormat|expressionWithFormat|informativeTextWithFormat'
    r'|raise:[^:\]]*\bformat|descriptionWithCalendarFormat)\s*:\s*')
DECLARED = re.compile(r'(?:const\s+)?\w+(?:\s+|\s*\*\s*(?:const\s+)?)\w+')
LITERAL = re.compile(r'(?:CFSTR\(\s*)?@?"(?:\\.|[^"\\\n])*"(?:\s*@?"(?:\\.|[^"\\\n])*")*')

# Places whose very purpose is somebody else's format: the file and the argument.
MEANT = {
    ('diagnostics/DebugLog.mm', 'Format('): 'log lines take the caller\'s format',
    ('textentry/PDEFormatter.mm', 'mFormatString'): 'a date formatter shows dates by its format',
    ('textentry/PDEFormatter.mm', '(CFStringRef)format'): 'a number formatter shows by its format',
    ('platform/CoreFoundation.mm', 'string(format)'): 'CFStringCreateWithFormat',
    ('dialog/toolkit/QuickInterface.mm', 'format arguments:'): 'the toolkit\'s own conditions',
}


def arguments(text, start):
    """The arguments of the call whose opening parenthesis is just before start."""
    depth, piece, result = 0, '', []
    position = start
    while position < len(text):
        literal = LITERAL.match(text, position)
        if literal:
            piece += literal.group()
            position = literal.end()
            continue
        character = text[position]
        if character in '([{':
            depth += 1
        elif character in ')]}':
            if depth == 0:
                break
            depth -= 1
        if character == ',' and depth == 0:
            result.append(piece.strip())
            piece = ''
        else:
            piece += character
        position += 1
    return result + [piece.strip()]


def check(root):
    problems = []
    for name, text in house.code(root, house.OWN_FOLDERS, ('.mm', '.cpp', '.h', '.hpp')):
        found = []
        for match in re.finditer(r'\b(' + '|'.join(FUNCTIONS) + r')\s*\(', text):
            given = arguments(text, match.end())
            place = FUNCTIONS[match.group(1)]
            # Fewer arguments, or a type before the name: not a call of it.
            if place < len(given) and not DECLARED.fullmatch(given[place]):
                found.append((match, match.group(1), given[place]))
        for match in METHOD.finditer(text):
            # A declaration has its type here, and a selector's name ends.
            if not text[match.end():].startswith(('(', ')')):
                found.append((match, match.group(1), text[match.end():].split('\n')[0].strip()))
        for match, call, used in found:
            if LITERAL.match(used) or any(
                    name == place and used.startswith(start) for place, start in MEANT):
                continue
            problems.append(f'{name}:{house.line_of(text, match.start())}: the format of {call} is '
                            f'"{used}", not a literal')
    return problems


GOOD = {
    'pagesettings/Good.mm': 'void f() { NSRunAlertPanel(@"%@", @"%@, (%d)", a, nil, nil, g(b, c));\n'
                            '[NSString stringWithFormat:@"%@ : ", title];\n'
                            'NSLog(@"a "\n      @"b");\n'
                            'g(@selector(appendFormat:));\nstd::printf("%s\\n", x); }\n'
                            '// NSLog(text)\n',
}


def _shell(text):
    return {'pagesettings/Bad.mm': f'void f() {{ {text} }}\n'}


BAD = [
    ('an alert\'s message', _shell('NSRunAlertPanel(@"%@", message, @"OK", nil, nil);')),
    ('an alert\'s message after a call', _shell('NSRunAlertPanel(g(@",", a), g(b), nil, nil, nil);')),
    ('a string', _shell('[NSString stringWithFormat:title];')),
    ('a string with a line break', _shell('[NSString stringWithFormat:\n    title, a];')),
    ('a mutable string', _shell('[text appendFormat: title, a];')),
    ('a string of its own', _shell('[[NSString alloc] initWithFormat:title];')),
    ('a log line', _shell('NSLog(text);')),
    ('a line on a stream', _shell('std::fprintf(stderr, text.c_str());')),
    ('a Core Foundation string', _shell('CFStringCreateWithFormat(nullptr, nullptr, title);')),
    ('an exception\'s reason', _shell('[NSException raise:kName format:reason];')),
]

if __name__ == '__main__':
    house.main(check, GOOD, BAD)
