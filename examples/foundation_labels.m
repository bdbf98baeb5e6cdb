#import <Foundation/Foundation.h>

@interface OVLabel : NSObject <NSCoding>
{
  NSString *name;
  NSString *displayName;
}
- (NSString *)displayName;
- (void)setDisplayName:(NSString *)text;
@end

@implementation OVLabel

- (id)initWithCoder:(NSCoder *)coder
{
  self = [super init];
  if (self != nil) {
    name = [[coder decodeObjectForKey:@"name"] copy];
    displayName = [[coder decodeObjectForKey:@"displayName"] copy];
  }
  return self;
}

- (void)encodeWithCoder:(NSCoder *)coder
{
  [coder encodeObject:name forKey:@"name"];
  [coder encodeObject:displayName forKey:@"displayName"];
}

- (NSString *)displayName
{
  return displayName;
}

- (void)setDisplayName:(NSString *)text
{
  [displayName autorelease];
  displayName = [text copy];
}

- (void)dealloc
{
  [name release];
  [displayName release];
  [super dealloc];
}

@end

int main(void)
{
  NSAutoreleasePool *pool = [[NSAutoreleasePool alloc] init];
  NSArray *labels = [NSKeyedUnarchiver unarchiveObjectWithFile:@"labels.plist"];
  OVLabel *label = [labels objectAtIndex:0];
  printf("%s\n", [[label displayName] UTF8String]);
  [label setDisplayName:@"Office"];
  [NSKeyedArchiver archiveRootObject:labels toFile:@"labels.plist"];
  [pool release];
  return 0;
}
