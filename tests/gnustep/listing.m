#import "listing.h"

#import "containers.h"

static void replaceAll(NSMutableString *text, NSString *old, NSString *new)
{
  [text replaceOccurrencesOfString:old
                        withString:new
                           options:NSLiteralSearch
                             range:NSMakeRange(0, [text length])];
}

static NSString *quoted(NSString *text)
{
  NSMutableString *result = [[text mutableCopy] autorelease];
  replaceAll(result, @"\\", @"\\\\");
  replaceAll(result, @"\"", @"\\\"");
  for (unichar each = 0; each < 0x20; ++each) {
    replaceAll(result, [NSString stringWithCharacters:&each length:1],
               [NSString stringWithFormat:@"\\u%04x", each]);
  }
  return [NSString stringWithFormat:@"\"%@\"", result];
}

static NSString *real(double number)
{
  char buffer[64];
  snprintf(buffer, sizeof buffer, "real %.17g", number);
  return [NSString stringWithUTF8String:buffer];
}

static NSString *plainNumber(NSNumber *number)
{
  switch (*[number objCType]) {
    case 'c':
    case 'C':
    case 'B':
      return [number boolValue] ? @"true" : @"false";
    case 'd':
    case 'f':
      return real([number doubleValue]);
    case 'Q':
      return [NSString stringWithFormat:@"%llu", [number unsignedLongLongValue]];
    default:
      return [NSString stringWithFormat:@"%lld", [number longLongValue]];
  }
}

static NSString *hexadecimal(NSData *data)
{
  NSMutableString *result = [NSMutableString stringWithString:@"<"];
  for (NSUInteger i = 0; i < [data length]; ++i)
    [result appendFormat:@"%02x", ((const unsigned char *)[data bytes])[i]];
  [result appendString:@">"];
  return result;
}

@interface Listing : NSObject
{
  NSMutableArray *lines;
  NSMutableArray *objects; // in the order in which they were met
  NSMapTable *numbers;     // by identity
}
- (NSString *)textOf:(id)root;
- (void)describe:(id)object as:(NSString *)name;
- (void)describeContainer:(Container *)object as:(NSString *)name;
- (BOOL)flattened:(id)value key:(NSString *)key as:(NSString *)name;
@end

@implementation Listing

- (id)init
{
  self = [super init];
  lines = [[NSMutableArray alloc] init];
  objects = [[NSMutableArray alloc] init];
  numbers = NSCreateMapTable(NSNonOwnedPointerMapKeyCallBacks, NSIntegerMapValueCallBacks, 0);
  return self;
}

- (void)dealloc
{
  NSFreeMapTable(numbers);
  [objects release];
  [lines release];
  [super dealloc];
}

- (NSString *)value:(id)object
{
  if (object == nil || object == [NSNull null]) return @"null";
  if ([object isKindOfClass:[NSString class]]) return quoted(object);
  if ([object isKindOfClass:[NSNumber class]]) return plainNumber(object);
  if ([object isKindOfClass:[NSData class]]) return hexadecimal(object);
  NSInteger number = (NSInteger)NSMapGet(numbers, object);
  if (number == 0) {
    [objects addObject:object];
    number = (NSInteger)[objects count];
    NSMapInsert(numbers, object, (void *)number);
  }
  return [NSString stringWithFormat:@"#%ld", (long)number];
}

- (NSString *)elements:(NSArray *)elements
{
  NSMutableArray *values = [NSMutableArray array];
  for (id each in elements) [values addObject:[self value:each]];
  return [NSString stringWithFormat:@"[%@]", [values componentsJoinedByString:@", "]];
}

- (NSString *)textOf:(id)root
{
  [lines addObject:[@"root = " stringByAppendingString:[self value:root]]];
  for (NSUInteger i = 0; i < [objects count]; ++i)
    [self describe:[objects objectAtIndex:i] as:[NSString stringWithFormat:@"#%lu", i + 1]];
  return [[lines componentsJoinedByString:@"\n"] stringByAppendingString:@"\n"];
}

- (void)line:(NSString *)format, ...
{
  va_list arguments;
  va_start(arguments, format);
  [lines addObject:[[[NSString alloc] initWithFormat:format arguments:arguments] autorelease]];
  va_end(arguments);
}

- (void)describe:(id)object as:(NSString *)name
{
  if ([object isKindOfClass:[NSArray class]]) {
    [self line:@"%@ : %@", name,
          [object isKindOfClass:[NSMutableArray class]] ? @"list" : @"immutable list"];
    NSUInteger position = 0;
    for (id each in object) [self line:@"%@[%lu] = %@", name, position++, [self value:each]];
  } else if ([object isKindOfClass:[NSDictionary class]]) {
    [self line:@"%@ : %@", name,
          [object isKindOfClass:[NSMutableDictionary class]] ? @"dictionary"
                                                             : @"immutable dictionary"];
    for (NSString *key in object)
      [self line:@"%@[%@] = %@", name, quoted(key), [self value:[object objectForKey:key]]];
  } else if ([object isKindOfClass:[NSDate class]]) {
    [self line:@"%@ : date", name];
    [self line:@"%@.time = %@", name, real([object timeIntervalSinceReferenceDate])];
  } else {
    [self describeContainer:object as:name];
  }
}

- (void)describeContainer:(Container *)object as:(NSString *)name
{
  NSString *class = NSStringFromClass([object class]);
  const BOOL isOurs = [class hasPrefix:@"OV"];
  if (isOurs)
    [self line:@"%@ : %@", name, class];
  else
    [self line:@"%@ : opaque %@ (%@)", name, class,
          [[object classNames] componentsJoinedByString:@", "]];
  for (NSString *key in [object keys]) {
    id value = [object objectForKey:key];
    if (!isOurs)
      [self line:@"%@.%@%@ = %@", name, [key hasPrefix:@"$"] ? @"$" : @"", key, [self value:value]];
    else if (value != nil && ![self flattened:value key:key as:name])
      [self line:@"%@.%@ = %@", name, key, [self value:value]];
  }
}

/// Arrays and dictionaries that belong to one object alone are shown in its place.
- (BOOL)flattened:(id)value key:(NSString *)key as:(NSString *)name
{
  const BOOL isLists = [key isEqual:@"TagsDicKey"] || [key isEqual:@"PersonDicKey"];
  if ([key isEqual:@"valueArray"] || [key isEqual:@"TagsKey"]) {
    [self line:@"%@.%@ = %@", name, key, [self elements:value]];
  } else if (isLists || [key isEqual:@"valueDic"]) {
    for (NSString *each in value) {
      id entry = [value objectForKey:each];
      [self line:@"%@.%@.%@ = %@", name, key, each,
            isLists ? [self elements:entry] : [self value:entry]];
    }
  } else {
    return NO;
  }
  return YES;
}

@end

NSString *listingOf(id root)
{
  return [[[[Listing alloc] init] autorelease] textOf:root];
}
