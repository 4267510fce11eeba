#include <dlfcn.h>
#include <objc/runtime.h>

namespace {

// The beginning of a class, as the GNU runtime's ABI gives it.
struct ClassHead {
    Class metaclass;
    Class superclass;
    const char* name;
    long version;
    unsigned long info;
};

// Clang marks classes of another GNU runtime's newer layout with the bit by which this one knows classes that are still
// being built.
constexpr unsigned long kInConstruction = 0x10;

bool isRegistered(Class cls) {
    Class known = static_cast<Class>(objc_lookUpClass(class_getName(cls)));
    return known == cls || (known != Nil && object_getClass(reinterpret_cast<id>(known)) == cls);
}

}  // namespace

// Ahead of the runtime's own by definition order: to a class that it takes for unfinished it would add the method
// without registering its selector, and stumble over it at the next message.
extern "C" BOOL class_addMethod(Class cls, SEL selector, IMP implementation, const char* types) {
    static const auto before =
        reinterpret_cast<BOOL (*)(Class, SEL, IMP, const char*)>(dlsym(RTLD_NEXT, "class_addMethod"));
    if (cls != Nil && isRegistered(cls)) reinterpret_cast<ClassHead*>(cls)->info &= ~kInConstruction;
    return before(cls, selector, implementation, types);
}
