#pragma once

#include <OVAddressBookSDK/text.h>

/// Posted by the host when a person's name, phone or e-mail address has changed.
OV_EXPORT extern const OVString OVPersonChangeNameNotification;
OV_EXPORT extern const OVString OVPersonChangePhoneNotification;
OV_EXPORT extern const OVString OVPersonChangeEmailNotification;
/// Posted by the host when the whole list of persons has changed.
OV_EXPORT extern const OVString OVPersonChangeAllPersonNotification;

/// Entries of the user information of those: the new name ("OVChangeNameNotification_NewNameKey"),
/// the person, the phone and the e-mail address.
OV_EXPORT extern const OVString OVChangeNameNotification_NameKey;
OV_EXPORT extern const OVString OVChangeNameNotification_PersonKey;
OV_EXPORT extern const OVString OVChangeNameNotification_PhoneKey;
OV_EXPORT extern const OVString OVChangeNameNotification_EmailKey;

/// Posted by the library, without object and user information, on every call of
/// `OVAddressBook::setlastNameInFront`, even if the name order does not change.
OV_EXPORT extern const OVString OV_LastNmaeFrontChange_notification;
