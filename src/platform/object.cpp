#include <OVAddressBookSDK/object.h>

const OVClass* OVObject::classForCoder() const { return nullptr; }

void OVObject::encodeWithCoder(OVKeyedArchiver& /*coder*/) const {}

void OVObject::initWithCoder(OVKeyedUnarchiver& /*coder*/) {}
