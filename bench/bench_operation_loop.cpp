// What the loop of an operation costs for each item, beside the item's own work: on the calling
// thread, and on a worker behind a progress window. The floor is a bare virtual call.
#include <memory>

#include "Measure.h"
#include "ops/MultiOp.h"

namespace {

constexpr unsigned kItems = 20'000'000;
constexpr int kRounds = 7;

// An item's work: next to nothing, but not to be left out.
class Counting : public MMultiOperation {
 public:
  Counting() : MMultiOperation(0, kItems) {}
  unsigned sum = 0;

 protected:
  OperationReturnState Operation(unsigned index) override {
    sum += index;
    return OperationDone;
  }
};

class Item {
 public:
  virtual ~Item() = default;
  virtual OperationReturnState Operation(unsigned index) = 0;
  unsigned sum = 0;
};

// Two classes, chosen at run time, so that the compiler cannot know what the call goes to.
template <int Which>
class CountingItem : public Item {
 public:
  OperationReturnState Operation(unsigned index) override {
    sum += index;
    return Which == 0 ? OperationDone : OperationFailed;
  }
};

std::unique_ptr<Item> makeItem() {
  volatile bool done = true;
  if (done) return std::make_unique<CountingItem<0>>();
  return std::make_unique<CountingItem<1>>();
}

unsigned callAll(Item& item) {
  unsigned done = 0;
  for (unsigned index = 0; index < kItems; ++index) done += item.Operation(index) == OperationDone;
  return done;
}

void measure(const char* subject, bool withWindow) {
  Counting operation;
  operation.SetNoGui(!withWindow);
  const std::unique_ptr<Item> item = makeItem();
  const bench::Times times = bench::Compare(
      kRounds,
      [&] {
        operation.sum = 0;
        bench::Require(operation.DoOperation(0) != 0, "the operation failed");
      },
      [&] {
        item->sum = 0;
        bench::Require(callAll(*item) == kItems, "items are missing");
      });
  bench::Require(operation.sum == item->sum, "the sums differ");
  bench::PrintRow(subject, times, 0);
  constexpr double kNanosecondsPerItem = 1e6 / kItems;
  printf("%-44s %9.2f ns %9.2f ns\n", "  for an item", times.subject * kNanosecondsPerItem,
         times.floor * kNanosecondsPerItem);
}

}  // namespace

int main() {
  bench::PrintHeader();
  measure("20,000,000 items, calling thread", false);
  measure("20,000,000 items, worker with window", true);
}
