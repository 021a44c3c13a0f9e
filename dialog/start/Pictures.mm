#include "dialog/start/Pictures.h"

#include "dialog/Text.h"
#include "dialog/start/LibraryFiles.hpp"

#include <AppKit/AppKit.h>

#include <objc/runtime.h>

namespace dialog {

namespace {

NSString* const kPictures = @"Images";

using Search = NSString* (*)(id, SEL, NSString*, NSString*, NSString*);
Search searchOfToolkit = nullptr;

LibraryFiles picturesOfLibraries()
{
    std::vector<std::string> libraries;
    for (NSString* library in NSSearchPathForDirectoriesInDomains(NSLibraryDirectory,
                                                                  NSAllDomainsMask, YES)) {
        libraries.push_back(toString(library));
    }
    return {libraries, toString(kPictures)};
}

NSString* pathInLibraries(id bundles, SEL command, NSString* name, NSString* type, NSString* folder)
{
    static const LibraryFiles pictures = picturesOfLibraries();
    if (name == nil || ![folder isEqualToString:kPictures] || !pictures.isWhole()) {
        return searchOfToolkit(bundles, command, name, type, folder);
    }
    const std::string file =
        toString([type length] == 0 ? name : [name stringByAppendingPathExtension:type]);
    const std::string path = pictures.find(file);
    return path.empty() ? nil : toNSString(path);
}

} // namespace

void findPicturesAtOnce()
{
    const Method method = class_getClassMethod([NSBundle class], @selector
                                               (pathForLibraryResource:ofType:inDirectory:));
    if (method != nullptr && searchOfToolkit == nullptr) {
        searchOfToolkit = reinterpret_cast<Search>(
            method_setImplementation(method, reinterpret_cast<IMP>(&pathInLibraries)));
    }
}

} // namespace dialog
