#import <Foundation/Foundation.h>

/// A book with a value of every kind, a label, a person and an address that are met twice, and a
/// multiple value that contains itself.
id sampleBook(void);
