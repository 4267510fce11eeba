#include "tests/support/extension.h"

#include "simulator/runtime/process/device.h"
#include "tests/support/parameter_name.h"

namespace {

// A machine identifier and the name that the library has for it.
struct Machine {
    const char* identifier;
    const char* name;
};

void PrintTo(const Machine& machine, std::ostream* out) { *out << machine.identifier; }

class DeviceHardware : public test::ExtensionTest, public testing::WithParamInterface<Machine> {
  protected:
    void bootMachine(const char* identifier) {
        phone::Device device = phone::readDevice(root.path()).value();
        device.machine = identifier;
        ASSERT_EQ(phone::problemOf(phone::writeDevice(root.path(), device)), "");
        boot();
    }
};

TEST_P(DeviceHardware, TellsTheDevicesName) {
    bootMachine(GetParam().identifier);
    EXPECT_STREQ([[Hardware platform] UTF8String], GetParam().identifier);
    EXPECT_STREQ([[Hardware platformString] UTF8String], GetParam().name);
}

INSTANTIATE_TEST_SUITE_P(Machines, DeviceHardware,
                         testing::Values(Machine{"iPhone1,1", "iPhone 1G"}, Machine{"iPhone1,2", "iPhone 3G"},
                                         Machine{"iPhone1,20", "iPhone1,20"}, Machine{"iPhone2,1", "iPhone 3GS"},
                                         Machine{"iPhone3,1", "iPhone 4"}, Machine{"iPhone3,3", "iPhone 4"},
                                         Machine{"iPhone30,1", "iPhone 4"}, Machine{"iPhone4,1", "iPhone4,1"},
                                         Machine{"iPod4,1", "iPod"}, Machine{"iPad5,3", "iPad"},
                                         Machine{"i386", "Simulator"}, Machine{"x86_64", "x86_64"},
                                         Machine{"iphone3,1", "iphone3,1"}),
                         test::ParameterName());

TEST_F(DeviceHardware, InstancesAnswerLikeTheClass) {
    bootMachine("iPhone3,1");
    id hardware = [[[Hardware class] alloc] init];
    EXPECT_STREQ([[hardware platform] UTF8String], "iPhone3,1");
    EXPECT_STREQ([[hardware platformString] UTF8String], "iPhone 4");
    [hardware release];
}

}  // namespace
