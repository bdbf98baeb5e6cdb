#import <Foundation/Foundation.h>

/// An object of one of the archived classes: its fields by key, as the archive has them. The
/// classes bear the names and have the ancestors that docs/archive-format.md gives, and are made
/// from one table.
@interface Container : NSObject <NSCoding> {
  NSMutableDictionary* fields;
}

/// Makes the classes. Comes before all else.
+ (void)makeClasses;

/// A new object of the class.
+ (id)containerOfClass:(NSString*)name;

/// The class and its ancestors, as a class record names them.
- (NSArray*)classNames;

/// Null for a field that is null and for one that is absent.
- (id)objectForKey:(NSString*)key;
/// The keys of the fields that are there, null ones included.
- (NSArray*)keys;
/// Puts an object, or nothing when it is nil, under a key of the class.
- (void)setObject:(id)object forKey:(NSString*)key;

@end
