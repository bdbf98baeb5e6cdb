#import "containers.h"

#include <objc/runtime.h>

typedef struct {
  const char *name;
  const char *superclass;
  // Each key after its kind: o object, i integer, b truth value, r real, x bytes.
  const char *keys;
} ContainerClass;

static const ContainerClass containerClasses[] = {
  {"OVValue", "Container", "i type"},
  {"OVSingleValue", "OVValue", "i type"},
  {"OVMutableSingleValue", "OVSingleValue", "i type|o label|o value"},
  {"OVMultipleValue", "OVValue", "i type"},
  {"OVMutableMultipleValue", "OVMultipleValue", "o valueArray|i mainValueIndex"},
  {"OVLabel", "Container", "o name|o displayName"},
  {"OVObjectPersonName", "Container", "o first|o middle|o last"},
  {"OVObjectPhone", "Container", "o phoneNumber"},
  {"OVObjectEmail", "Container", "o email"},
  {"OVObjectInstantMessage", "Container", "o userName|o serverName"},
  {"OVObjectAddress", "Container", "o valueDic|o countryCode"},
  {"OVImage", "Container", "o data"},
  {"OVPersonGeneral", "Container",
   "o Thumbnail|o Name|o MaidenName|o Is Organization|o Company|o Tags|o Phone|o Email|"
   "o FirstNamePhonetic|o LastNamePhonetic|o Prefix|o Suffix|o Nickname|o Department|o JobTitle|"
   "o Birthday|o Date|o URL|o InstantMessage|o Address|o RelatedNames|o Other|o Note|o ID"},
  {"OVGroupGeneral", "Container", "o title|o subArray|o persons"},
  {"OVAddressBook", "Container", ""},
  {"OVAddressBookGeneral", "OVAddressBook", "o personDic|o groupDic"},
  {"OVTagManager", "Container", "o TagsKey|o TagsDicKey|o PersonDicKey"},
  // What other programs put beside them.
  {"XYLabel", "OVLabel",
   "o name|i integer|i large|b true|b false|r real|x bytes|o null|o list|o $own"},
  {"XYUnknown", "Container", "o what"},
};

enum { containerClassCount = sizeof containerClasses / sizeof *containerClasses };

static id orNull(id object)
{
  return object == nil ? [NSNull null] : object;
}

@interface Container (Coding)
- (id)decodeKind:(unichar)kind forKey:(NSString *)key from:(NSCoder *)coder;
@end

@implementation Container

+ (void)makeClasses
{
  for (int i = 0; i < containerClassCount; ++i) {
    const ContainerClass *row = &containerClasses[i];
    objc_registerClassPair(objc_allocateClassPair(objc_getClass(row->superclass), row->name, 0));
  }
}

+ (id)containerOfClass:(NSString *)name
{
  return [[[NSClassFromString(name) alloc] init] autorelease];
}

/// The class's keys, each after its kind.
+ (NSArray *)kindsAndKeys
{
  for (int i = 0; i < containerClassCount; ++i) {
    if (strcmp(containerClasses[i].name, class_getName(self)) != 0) continue;
    NSString *keys = [NSString stringWithUTF8String:containerClasses[i].keys];
    return [keys length] == 0 ? [NSArray array] : [keys componentsSeparatedByString:@"|"];
  }
  return nil;
}

- (id)init
{
  self = [super init];
  if (self != nil) fields = [[NSMutableDictionary alloc] init];
  return self;
}

- (void)dealloc
{
  [fields release];
  [super dealloc];
}

- (id)initWithCoder:(NSCoder *)coder
{
  self = [self init];
  for (NSString *each in [[self class] kindsAndKeys]) {
    NSString *key = [each substringFromIndex:2];
    if (![coder containsValueForKey:key]) continue;
    [fields setObject:[self decodeKind:[each characterAtIndex:0] forKey:key from:coder] forKey:key];
  }
  return self;
}

- (id)decodeKind:(unichar)kind forKey:(NSString *)key from:(NSCoder *)coder
{
  NSUInteger length = 0;
  const void *bytes = NULL;
  switch (kind) {
    case 'i':
      return [NSNumber numberWithLongLong:[coder decodeInt64ForKey:key]];
    case 'b':
      return [NSNumber numberWithBool:[coder decodeBoolForKey:key]];
    case 'r':
      return [NSNumber numberWithDouble:[coder decodeDoubleForKey:key]];
    case 'x':
      bytes = [coder decodeBytesForKey:key returnedLength:&length];
      return [NSData dataWithBytes:bytes length:length];
    default:
      return orNull([coder decodeObjectForKey:key]);
  }
}

- (void)encodeWithCoder:(NSCoder *)coder
{
  for (NSString *each in [[self class] kindsAndKeys]) {
    NSString *key = [each substringFromIndex:2];
    id object = [fields objectForKey:key];
    if (object == nil) continue;
    if ([each characterAtIndex:0] == 'i')
      [coder encodeInt64:[object longLongValue] forKey:key];
    else
      [coder encodeObject:object forKey:key];
  }
}

- (NSArray *)classNames
{
  NSMutableArray *names = [NSMutableArray array];
  for (Class each = [self class]; each != [Container class]; each = [each superclass])
    [names addObject:NSStringFromClass(each)];
  [names addObject:@"NSObject"];
  return names;
}

- (id)objectForKey:(NSString *)key
{
  id object = [fields objectForKey:key];
  return object == [NSNull null] ? nil : object;
}

- (NSArray *)keys
{
  return [fields allKeys];
}

- (void)setObject:(id)object forKey:(NSString *)key
{
  if (object != nil) [fields setObject:object forKey:key];
}

@end
