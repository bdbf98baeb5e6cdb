// gnustep_archive list FILE    prints the graph that GNUstep finds in an archive
// gnustep_archive write FILE   writes an archive of a book
//
// What GNUstep refuses gives exit status 3 and the reason on standard error.

#import <Foundation/Foundation.h>

#import "containers.h"
#import "listing.h"
#import "sample_book.h"

static int list(NSString *path)
{
  NSData *block = [NSData dataWithContentsOfFile:path];
  NSString *text = listingOf([NSKeyedUnarchiver unarchiveObjectWithData:block]);
  NSData *printed = [text dataUsingEncoding:NSUTF8StringEncoding];
  return fwrite([printed bytes], 1, [printed length], stdout) == [printed length] ? 0 : 1;
}

static int writeBook(NSString *path)
{
  NSData *block = [NSKeyedArchiver archivedDataWithRootObject:sampleBook()];
  return [block writeToFile:path atomically:NO] ? 0 : 1;
}

static int run(const char *command, NSString *path)
{
  @try {
    if (strcmp(command, "list") == 0) return list(path);
    if (strcmp(command, "write") == 0) return writeBook(path);
  } @catch (NSException *exception) {
    fprintf(stderr, "%s\n", [[exception reason] UTF8String]);
    return 3;
  }
  return 2;
}

int main(int count, char **arguments)
{
  NSAutoreleasePool *pool = [[NSAutoreleasePool alloc] init];
  int status = 2;
  if (count == 3) {
    [Container makeClasses];
    status = run(arguments[1], [NSString stringWithUTF8String:arguments[2]]);
  }
  if (status == 2) fputs("usage: gnustep_archive list|write FILE\n", stderr);
  [pool release];
  return status;
}
