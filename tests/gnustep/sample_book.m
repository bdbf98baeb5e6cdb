#import "sample_book.h"

#import "containers.h"

/// An object of the class with the fields given as key, object, key, object, ..., nil.
static id make(NSString *class, ...)
{
  Container *object = [Container containerOfClass:class];
  va_list arguments;
  va_start(arguments, class);
  NSString *key;
  while ((key = va_arg(arguments, NSString *)) != nil)
    [object setObject:va_arg(arguments, id) forKey:key];
  va_end(arguments);
  return object;
}

static id valueOf(int type, id datum, id label)
{
  Container *value = make(@"OVMutableSingleValue", @"type", [NSNumber numberWithInt:type], nil);
  [value setObject:label forKey:@"label"];
  [value setObject:datum forKey:@"value"];
  return value;
}

static id allOf(int mainIndex, NSArray *values)
{
  return make(@"OVMutableMultipleValue", @"valueArray", [[values mutableCopy] autorelease],
              @"mainValueIndex", [NSNumber numberWithInt:mainIndex], nil);
}

static id personOf(NSString *ID)
{
  return make(@"OVPersonGeneral", @"ID", ID, nil);
}

static id ada(id label, id addresses)
{
  Container *ada = personOf(@"ada");
  const unsigned char picture[] = {0x89, 'P', 'N', 'G'};
  NSData *bytes = [NSData dataWithBytes:picture length:sizeof picture];
  [ada setObject:valueOf(5, make(@"OVImage", @"data", bytes, nil), nil) forKey:@"Thumbnail"];
  id name = make(@"OVObjectPersonName", @"first", @"Ada", @"last", @"Lovelace", nil);
  [ada setObject:valueOf(8, name, label) forKey:@"Name"];
  NSDate *birthday = [NSDate dateWithTimeIntervalSinceReferenceDate:-5840035200.0];
  [ada setObject:valueOf(3, birthday, label) forKey:@"Birthday"];
  id first = valueOf(6, make(@"OVObjectPhone", @"phoneNumber", @"+44 20 7946 0018", nil), label);
  id second = valueOf(6, make(@"OVObjectPhone", nil), make(@"OVLabel", nil));
  [ada setObject:allOf(1, [NSArray arrayWithObjects:first, second, nil]) forKey:@"Phone"];
  id email = make(@"OVObjectEmail", @"email", @"ada@example.org", nil);
  [ada setObject:allOf(0, [NSArray arrayWithObject:valueOf(7, email, label)]) forKey:@"Email"];
  id account = make(@"OVObjectInstantMessage", @"userName", @"ada", @"serverName",
                    @"JabberInstant", nil);
  [ada setObject:allOf(0, [NSArray arrayWithObject:valueOf(13, account, nil)])
          forKey:@"InstantMessage"];
  [ada setObject:addresses forKey:@"Address"];
  NSString *note = [NSString stringWithUTF8String:"Zoë, 明 and 😀"];
  [ada setObject:valueOf(11, note, nil) forKey:@"Note"];
  return ada;
}

static id addresses(id label)
{
  NSDictionary *fields = [NSMutableDictionary
      dictionaryWithObjectsAndKeys:@"London", @"OVAddressFieldCity", @"12 St James's Square",
                                   @"OVAddressFieldStreet", nil];
  id address = make(@"OVObjectAddress", @"valueDic", fields, @"countryCode", @"gb", nil);
  return allOf(0, [NSArray arrayWithObject:valueOf(9, address, label)]);
}

static id ring(void)
{
  id own = valueOf(0, nil, nil);
  id all = allOf(0, [NSArray arrayWithObject:own]);
  [own setObject:all forKey:@"value"];
  return all;
}

id sampleBook(void)
{
  id label = make(@"OVLabel", @"name", @"home", @"displayName", @"Zuhause", nil);
  id both = addresses(label);
  id person = ada(label, both);
  Container *twin = personOf(@"twin");
  [twin setObject:both forKey:@"Address"];
  [twin setObject:ring() forKey:@"Other"];
  [twin setObject:valueOf(-1, make(@"XYUnknown", @"what", @"kept whole", nil), label)
           forKey:@"Company"];
  NSDictionary *persons = [NSMutableDictionary
      dictionaryWithObjectsAndKeys:person, @"ada", person, @"alias", twin, @"twin", nil];
  NSArray *members = [NSMutableArray arrayWithObjects:@"ada", @"twin", nil];
  id group = make(@"OVGroupGeneral", @"title", @"Family", @"subArray", [NSMutableArray array],
                  @"persons", members, nil);
  NSDictionary *groups = [NSMutableDictionary dictionaryWithObject:group forKey:@"family"];
  return make(@"OVAddressBookGeneral", @"personDic", persons, @"groupDic", groups, nil);
}
