#import <Foundation/Foundation.h>

/// The graph as text, in the form of the listings in tests/golden.
NSString* listingOf(id root);
