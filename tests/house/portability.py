"""The plug-in's folders are written for any system with the toolkit's interface, not for this one."""
import re

import house

PLATFORM = {'AppKit/AppKit.h', 'CoreFoundation/CoreFoundation.h',
            'ApplicationServices/ApplicationServices.h', 'CoreServices/CoreServices.h',
            'cups/ppd.h'}
# Of POSIX only the write and close calls, for the messages on a file descriptor.
POSIX = {'unistd.h'}
CPP_LIBRARY = set('''algorithm any array atomic bit bitset cassert cctype cerrno cfenv cfloat charconv
    chrono cinttypes climits clocale cmath compare complex concepts condition_variable csetjmp
    csignal cstdarg cstddef cstdint cstdio cstdlib cstring ctime cuchar cwchar cwctype deque
    exception execution filesystem format forward_list fstream functional future initializer_list
    iomanip ios iosfwd iostream istream iterator limits list locale map memory memory_resource mutex
    new numbers numeric optional ostream queue random ranges ratio regex scoped_allocator set
    shared_mutex source_location span sstream stack stdexcept streambuf string string_view
    system_error thread tuple type_traits typeindex typeinfo unordered_map unordered_set utility
    valarray variant vector version
    assert.h ctype.h errno.h float.h limits.h locale.h math.h signal.h stdarg.h stddef.h stdint.h
    stdbool.h stdio.h stdlib.h string.h time.h'''.split())

INCLUDE = re.compile(r'^[ \t]*#[ \t]*(?:include|import)\b[ \t]*(\S[^\n]*)', re.M)
# The languages may be told apart (a header read by both); systems and toolkits may not.
LANGUAGE = re.compile(r'(?:ifdef|ifndef)\s+(__cplusplus|__OBJC__)\s*$')
CONDITION = re.compile(r'^[ \t]*#[ \t]*((?:if|ifdef|ifndef|elif|elifdef|elifndef)\b[^\n]*)', re.M)
TOOLKIT_ONLY = re.compile(
    r'\b(ASSIGN|ASSIGNCOPY|RELEASE|RETAIN|DESTROY|AUTORELEASE|COPY|TEST_RELEASE|TEST_RETAIN'
    r'|TEST_AUTORELEASE|CREATE_AUTORELEASE_POOL|RECREATE_AUTORELEASE_POOL|ENTER_POOL|LEAVE_POOL'
    r'|IF_NO_GC|IF_NO_ARC|GNUSTEP\w*|GS_\w+|GS[A-Z][a-z]\w+|NSDebug\w*Log\w*|NSWarn\w*Log\w*)\b')
EXCEPTION = re.compile(r'(?<!@)\b(try|catch|throw)\b')


def check(root):
    problems = []
    for name, text in house.code(root, house.PLUGIN_FOLDERS):
        plain = house.without_texts(text)

        def refuse(position, what):
            problems.append(f'{name}:{house.line_of(plain, position)}: {what}')

        rule = name.endswith(('.cpp', '.hpp'))
        for match in INCLUDE.finditer(plain):
            target = match.group(1).strip()
            if target.startswith('"'):
                if target.strip('"').split('/')[0] in ('platform', 'dialog'):
                    refuse(match.start(), f'{target} belongs to the other side')
                continue
            header = target.strip('<>')
            if not target.startswith('<') or header not in PLATFORM | POSIX | CPP_LIBRARY:
                refuse(match.start(), f'{target} is not one of the headers that may be included')
            elif rule and header not in CPP_LIBRARY:
                refuse(match.start(), f'a rule is plain C++ and includes no {target}')
        for match in CONDITION.finditer(plain):
            if not LANGUAGE.match(match.group(1).strip()):
                refuse(match.start(), f'"#{match.group(1).strip()}": nothing depends on the system')
        for match in TOOLKIT_ONLY.finditer(plain):
            refuse(match.start(), f'{match.group()} is known to this toolkit alone')
        if name.endswith('.mm'):
            for match in EXCEPTION.finditer(plain):
                refuse(match.start(), f'{match.group()}: C++ exceptions end the program in a .mm')
        if rule:
            for match in re.finditer(r'@(try|catch|interface|implementation)\b', plain):
                refuse(match.start(), f'{match.group()} in plain C++')
    return problems


GOOD = {
    'plugin/Good.mm': '#include "plugin/Good.h"\n#include <AppKit/AppKit.h>\n#include <cups/ppd.h>\n'
                      '// #ifdef __APPLE__ and ASSIGN(a, b) in a comment\n'
                      'static NSString* const kText = @"RELEASE(x) #if 1";\n'
                      'void f() { @try { g(); } @catch (NSException* e) {} }\n',
    'plugin/Good.h': '#ifdef __cplusplus\n#include <cstdint>\n#endif\n',
    'tape/Rule.cpp': '#include <charconv>\n#include "tape/Rule.hpp"\n',
}


def _shell(text):
    return {'pagesettings/Bad.mm': text}


BAD = [
    ('the toolkit\'s own header', _shell('#include <GNUstepBase/GNUstep.h>\n')),
    ('a header of the toolkit that is none of the five', _shell('#import <Foundation/Foundation.h>\n')),
    ('a header of the print library that is none of the five', _shell('#include <cups/cups.h>\n')),
    ('a header by macro', _shell('#include HEADER\n')),
    ('a system header', _shell('#include <sys/stat.h>\n')),
    ('an include of the platform', _shell('#include "platform/PrintingHost.hpp"\n')),
    ('an include of the dialog', _shell('#include "dialog/Text.h"\n')),
    ('a condition on the system', _shell('#ifdef __APPLE__\n#endif\n')),
    ('a condition on the toolkit', _shell('#if defined(GNUSTEP)\n#endif\n')),
    ('a second condition on the system', _shell('#ifdef __cplusplus\n#elif __linux__\n#endif\n')),
    ('ASSIGN', _shell('void f() { ASSIGN(a, b); }\n')),
    ('RELEASE', _shell('void f() { RELEASE(a); }\n')),
    ('RETAIN', _shell('void f() { RETAIN(a); }\n')),
    ('DESTROY', _shell('void f() { DESTROY(a); }\n')),
    ('TEST_RELEASE', _shell('void f() { TEST_RELEASE(a); }\n')),
    ('CREATE_AUTORELEASE_POOL', _shell('void f() { CREATE_AUTORELEASE_POOL(p); }\n')),
    ('a class of the toolkit\'s own', _shell('void f() { [GSTheme theme]; }\n')),
    ('catch in Objective-C++', _shell('void f() { try { g(); } catch (...) {} }\n')),
    ('a window in a rule', {'tape/Bad.cpp': '#include <AppKit/AppKit.h>\n'}),
    ('the print library in a rule', {'ppd/Bad.hpp': '#include <cups/ppd.h>\n'}),
    ('@try in a rule', {'tape/Bad.cpp': 'void f() { @try { g(); } @finally {} }\n'}),
]

if __name__ == '__main__':
    house.main(check, GOOD, BAD)
