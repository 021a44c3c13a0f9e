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

using BundleSearch = NSString* (*)(id, SEL, NSString*, NSString*, NSString*, NSBundle*);
BundleSearch bundleSearchOfToolkit = nullptr;

// The program has no pictures for the toolkit; what else lies in the folder where it is installed
// are a thousand other programs.
NSString* pathInBundle(id bundle, SEL command, NSString* name, NSString* type, NSString* folder,
                       NSBundle* searched)
{
    return searched == [NSBundle mainBundle]
               ? nil
               : bundleSearchOfToolkit(bundle, command, name, type, folder, searched);
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
    const Method inBundle = class_getInstanceMethod(
        [NSBundle class], sel_registerName("_pathForImageNamed:ofType:subdirectory:inBundle:"));
    if (inBundle != nullptr && bundleSearchOfToolkit == nullptr) {
        bundleSearchOfToolkit = reinterpret_cast<BundleSearch>(
            method_setImplementation(inBundle, reinterpret_cast<IMP>(&pathInBundle)));
    }
}

} // namespace dialog
