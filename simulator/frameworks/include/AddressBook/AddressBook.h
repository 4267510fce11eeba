#include "simulator/frameworks/address_book/address_book.h"
