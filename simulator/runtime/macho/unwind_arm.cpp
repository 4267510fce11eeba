#include "simulator/runtime/macho/unwind_arm.h"

#if defined(__arm__)

#include <dlfcn.h>
#include <sys/mman.h>
#include <unwind.h>

#include <cstdint>
#include <cstdio>
#include <cstdlib>
#include <cstring>
#include <vector>

#include "simulator/runtime/macho/sjlj_table.h"
#include "simulator/runtime/macho/unwind.h"

// Of libgcc's unwinder for this processor ("Exception Handling ABI for the Arm Architecture"): takes registers off the
// stack. In this function's numbers, a run of registers is its first one and, in the lower half, how many.
extern "C" _Unwind_VRS_Result _Unwind_VRS_Pop(_Unwind_Context* context, _Unwind_VRS_RegClass kind, std::uint32_t run,
                                              _Unwind_VRS_DataRepresentation representation);

namespace phone::macho {
namespace {

constexpr int kFramePointer = 7, kStackPointer = 13, kProgramCounter = 15;

// What a function that wants to know of exceptions keeps in its frame and links into its thread's list, as LLVM's
// SjLjEHPrepare.cpp lays it out.
struct FunctionContext {
    FunctionContext* before;
    std::uint32_t call;  // the number of the call under way; on landing, the place's
    std::uint32_t data[4];
    void* personality;
    const std::uint8_t* table;
    std::uint32_t framePointer, landing, stackPointer;
};

thread_local FunctionContext* newest = nullptr;

extern "C" void phoneRegister(FunctionContext* context) {
    context->before = newest;
    newest = context;
}

extern "C" void phoneUnregister(FunctionContext* context) { newest = context->before; }

// Its address names the phone's kind of personality; nobody calls it.
extern "C" void phonePersonality() {
    std::fprintf(stderr, "a phone's library called its personality function\n");
    std::abort();
}

std::uint32_t wordAt(std::uint32_t address) {
    std::uint32_t word;
    std::memcpy(&word, reinterpret_cast<const void*>(address), sizeof word);
    return word;
}

// One frame of a phone's function. The compiler begins those that call others with
//     push {.., r7, lr}; add r7, sp, #..; push {r8, ..}
// and then keeps vector registers from d8 on, either by vpush or at an address that it rounds down.
class Frame {
  public:
    explicit Frame(_Unwind_Context* context)
        : context_(context), framePointer_(get(kFramePointer)), stackPointer_(get(kStackPointer)) {}

    // What the function has linked into the list, or nullptr.
    FunctionContext* functionContext() const {
        for (FunctionContext* each = newest; each != nullptr; each = each->before) {
            if (holds(each)) return each;
        }
        return nullptr;
    }

    void land(FunctionContext& function, const Landing& landing, _Unwind_Control_Block* exception) {
        function.data[0] = reinterpret_cast<std::uint32_t>(exception);
        function.data[1] = landing.type;
        function.call = landing.pad;
        newest = &function;
        set(kFramePointer, function.framePointer);
        set(kStackPointer, function.stackPointer);
        set(kProgramCounter, function.landing);
    }

    void unlink() const {
        while (newest != nullptr && holds(newest)) newest = newest->before;
    }

    // Gives the caller's registers back. False when the function does not begin as expected.
    bool leave() {
        const std::uint32_t prologue = findPrologue();
        if (prologue == 0) return false;
        std::uint32_t place = framePointer_, rounded = 0;
        popDown(wordAt(prologue) & kBelowFramePointer, place);
        // Other instructions may stand between these; the next function's may follow.
        for (std::uint32_t i = 1; i < kPrologueWords; ++i) {
            const std::uint32_t word = wordAt(prologue + 4 * i);
            if (isPush(word) && (word & kLinkRegister) != 0) break;
            if (isPush(word)) popDown(word & 0xffff, place);
            if (isVectorPush(word)) popVectors(place - (word & 0xff) * 4, (word & 0xff) / 2);
            if (makesRoom(word)) rounded = word & 0xff;
            if (word == kRoundsDown) popVectors((place - rounded) & ~std::uint32_t{15}, rounded / 8);
        }
        const std::uint32_t caller = wordAt(framePointer_ + 4);
        set(kStackPointer, framePointer_ + 8);
        set(kFramePointer, wordAt(framePointer_));
        set(kProgramCounter, caller);
        return true;
    }

  private:
    static constexpr std::uint32_t kPrologueWords = 10;
    static constexpr std::uint32_t kBelowFramePointer = 0x7f;  // of a set of registers: r0 to r6
    static constexpr std::uint32_t kLinkRegister = 0x4000;
    static constexpr std::uint32_t kRoundsDown = 0xe7c3401f;  // bfc r4, #0, #4

    std::uint32_t get(int number) const { return _Unwind_GetGR(context_, number); }
    void set(int number, std::uint32_t value) { _Unwind_SetGR(context_, number, value); }

    bool holds(const FunctionContext* each) const {
        const auto address = reinterpret_cast<std::uint32_t>(each);
        return address >= stackPointer_ && address < framePointer_;
    }

    static bool isPush(std::uint32_t word) { return (word & 0xffff0000) == 0xe92d0000; }
    // vpush {d8, ..}
    static bool isVectorPush(std::uint32_t word) { return (word & 0xffffff00) == 0xed2d8b00; }
    // sub r4, sp, #..
    static bool makesRoom(std::uint32_t word) { return (word & 0xffffff00) == 0xe24d4000; }
    // add r7, sp, #..; or mov r7, sp
    static bool setsFramePointer(std::uint32_t word) { return (word & 0xfffff000) == 0xe28d7000 || word == 0xe1a0700d; }

    // Backwards from where the function is; 0 when there is none within reason.
    std::uint32_t findPrologue() const {
        constexpr std::uint32_t kFarthest = 64 * 1024, kBoth = kLinkRegister | 0x80;  // and r7
        const std::uint32_t from = get(kProgramCounter) & ~std::uint32_t{3};
        for (std::uint32_t place = from - 4; place > from - kFarthest; place -= 4) {
            if (!isPush(wordAt(place)) || (wordAt(place) & kBoth) != kBoth) continue;
            for (std::uint32_t i = 1; i <= 3; ++i) {
                if (setsFramePointer(wordAt(place + 4 * i))) return place;
            }
        }
        return 0;
    }

    // Registers of a set that were pushed ending below a place, which moves below them.
    void popDown(std::uint32_t registers, std::uint32_t& place) {
        for (int number = 12; number >= 0; --number) {
            if ((registers & (1u << number)) == 0) continue;
            place -= 4;
            set(number, wordAt(place));
        }
    }

    void popVectors(std::uint32_t from, std::uint32_t count) {
        set(kStackPointer, from);
        _Unwind_VRS_Pop(context_, _UVRSC_VFP, (8u << 16) | count, _UVRSD_DOUBLE);
    }

    _Unwind_Context* context_;
    std::uint32_t framePointer_, stackPointer_;
};

// What this machine's unwinder calls for each frame of a phone's code.
extern "C" _Unwind_Reason_Code phoneFrame(_Unwind_State state, _Unwind_Control_Block* exception,
                                          _Unwind_Context* context) {
    constexpr std::uint32_t kNone = ~std::uint32_t{0};
    Frame frame(context);
    const bool searching = (state & _US_ACTION_MASK) == _US_VIRTUAL_UNWIND_FRAME;
    FunctionContext* const function = frame.functionContext();
    if (function != nullptr && function->call != kNone && (state & _US_FORCE_UNWIND) == 0) {
        const Landing landing = landingOf(function->table, function->call);
        if (searching && landing.catches) {
            exception->barrier_cache.sp = _Unwind_GetGR(context, kStackPointer);
            return _URC_HANDLER_FOUND;
        }
        if (!searching && landing.wanted) {
            frame.land(*function, landing, exception);
            return _URC_INSTALL_CONTEXT;
        }
    }
    if (!searching) frame.unlink();
    return frame.leave() ? _URC_CONTINUE_UNWIND : _URC_FAILURE;
}

// One image's entry in the form of the processor's exception tables, whose offsets reach 1 GB: it lies in memory of its
// own, near the image, and has a jump to the function that may be farther away.
struct Entry {
    std::uint32_t function, description;  // the table: a first function, where its description is
    std::uint32_t personality;            // the description
    std::uint32_t jump;                   // ldr pc, [pc, #-4]
    std::uint32_t target;
};

struct Covered {
    std::uint32_t begin, end;
    const Entry* entry;
};

// Never destroyed: exceptions may pass to the process's very end.
std::vector<Covered>& covered() {
    static auto* all = new std::vector<Covered>;
    return *all;
}

std::uint32_t addressOf(const void* place) { return reinterpret_cast<std::uint32_t>(place); }

// The distance from the field to the target, in 31 bits.
std::uint32_t reach(const std::uint32_t& field, std::uint32_t target) {
    return (target - addressOf(&field)) & 0x7fffffff;
}

}  // namespace

Result<UnwindFrames> translateUnwindInfo(const Image& /*image*/, const char* /*begin*/) { return UnwindFrames{}; }

void registerFrames(UnwindFrames& /*frames*/, const Image& image, char* begin) {
    const Segment& last = image.segments.back();
    const std::uint64_t size = last.address + last.size - image.segments.front().address;
    void* place = mmap(nullptr, sizeof(Entry), PROT_READ | PROT_WRITE, MAP_PRIVATE | MAP_ANONYMOUS, -1, 0);
    auto* entry = static_cast<Entry*>(place);
    if (place == MAP_FAILED) {
        std::perror("no memory for a library's exception table");
        std::abort();
    }
    entry->function = reach(entry->function, addressOf(begin));
    entry->description = reach(entry->description, addressOf(&entry->personality));
    entry->personality = reach(entry->personality, addressOf(&entry->jump));
    entry->jump = 0xe51ff004;
    entry->target = reinterpret_cast<std::uint32_t>(&phoneFrame);
    mprotect(place, sizeof(Entry), PROT_READ | PROT_EXEC);
    __builtin___clear_cache(static_cast<char*>(place), static_cast<char*>(place) + sizeof(Entry));
    covered().push_back({addressOf(begin), addressOf(begin) + static_cast<std::uint32_t>(size), entry});
}

void* exceptionFunction(std::string_view name) {
    if (name == "__Unwind_SjLj_Register") return reinterpret_cast<void*>(&phoneRegister);
    if (name == "__Unwind_SjLj_Unregister") return reinterpret_cast<void*>(&phoneUnregister);
    // The unwinder goes on from the registers that it finds: nothing may stand in between.
    if (name == "__Unwind_SjLj_Resume") return reinterpret_cast<void*>(&_Unwind_Resume);
    if (name == "___gxx_personality_sj0") return reinterpret_cast<void*>(&phonePersonality);
    return nullptr;
}

}  // namespace phone::macho

// libgcc asks this of the C library, or of whoever stands before it: the exception table that covers an address.
extern "C" __attribute__((visibility("default"))) _Unwind_Ptr __gnu_Unwind_Find_exidx(_Unwind_Ptr address, int* count) {
    for (const phone::macho::Covered& image : phone::macho::covered()) {
        if (address < image.begin || address >= image.end) continue;
        *count = 1;
        return phone::macho::addressOf(image.entry);
    }
    using Find = _Unwind_Ptr (*)(_Unwind_Ptr, int*);
    static const auto system = reinterpret_cast<Find>(dlsym(RTLD_NEXT, "__gnu_Unwind_Find_exidx"));
    return system(address, count);
}

#endif
