// LivingObjects.hpp - which objects were made and are still there.
//
//     const LivingObjects objects({"PDEFormatter"});
//     [[[PDEFormatter alloc] init] release];
//     EXPECT_EQ(objects.added(), Texts{});
//
// Objects wait in autorelease pools: end the pool before asking.
#pragma once

#include "support/PanelTest.hpp"

#include <utility>

// The toolkit's header hides them from builds without assertions; the library has them always.
extern "C" BOOL GSDebugAllocationActive(BOOL active);
extern "C" int GSDebugAllocationCount(Class counted);

class LivingObjects
{
  public:
    // From now on instances of these classes are counted, those of their subclasses are not.
    explicit LivingObjects(Texts classes)
        : classes_(std::move(classes)), wasActive_(GSDebugAllocationActive(YES))
    {
        for (const std::string& name : classes_)
            before_.push_back(count(name));
    }
    ~LivingObjects() { GSDebugAllocationActive(wasActive_); }
    LivingObjects(const LivingObjects&) = delete;
    LivingObjects& operator=(const LivingObjects&) = delete;

    // "Class 2" for each class of which there are two more than before, "Class -1" for one less.
    Texts added() const
    {
        Texts changes;
        for (std::size_t i = 0; i < classes_.size(); ++i) {
            if (const int difference = count(classes_[i]) - before_[i]; difference != 0)
                changes.push_back(classes_[i] + " " + std::to_string(difference));
        }
        return changes;
    }

  private:
    static int count(const std::string& name)
    {
        return GSDebugAllocationCount(classNamed(name.c_str()));
    }

    Texts classes_;
    std::vector<int> before_;
    BOOL wasActive_;
};
