#include "platform/quartzcore/ca_animation_block.h"

#include <algorithm>

#include "platform/quartzcore/ca_layer.h"

namespace {

/// The open blocks, innermost last. Never destroyed: layers may outlive everything else and still ask.
std::vector<std::shared_ptr<CAAnimationBlock>>& openBlocks() {
  static auto& blocks = *new std::vector<std::shared_ptr<CAAnimationBlock>>();
  return blocks;
}

/// The last one that animated nothing, for the next: a finger that moves opens one at each step.
std::shared_ptr<CAAnimationBlock>& spareBlock() {
  static auto& block = *new std::shared_ptr<CAAnimationBlock>();
  return block;
}

}  // namespace

void CAAnimationBlock::begin() {
  auto block = std::exchange(spareBlock(), nullptr);
  openBlocks().push_back(block ? std::move(block) : std::make_shared<CAAnimationBlock>());
}

void CAAnimationBlock::commit() {
  if (openBlocks().empty()) return;
  auto block = std::move(openBlocks().back());
  openBlocks().pop_back();
  block->close();
  if (block.use_count() > 1) return;
  *block = CAAnimationBlock();
  spareBlock() = std::move(block);
}

CAAnimationBlock* CAAnimationBlock::current() {
  return openBlocks().empty() ? nullptr : openBlocks().back().get();
}

void CAAnimationBlock::animationAdded(const std::shared_ptr<CALayer>& layer) {
  ++running_;
  layers_.push_back(layer);
  endTime_ = std::max(endTime_, RunLoop::main().now() + duration_);
}

void CAAnimationBlock::animationRemoved() {
  --running_;
  if (running_ > 0 || open_) return;
  RunLoop::main().cancel(endToken_);
  if (completion_) completeAtNextTurn();
}

void CAAnimationBlock::close() {
  open_ = false;
  if (running_ > 0)
    endToken_ = RunLoop::main().schedule(endTime_, [self = shared_from_this()] { self->end(); });
  else if (completion_)
    completeAtNextTurn();
}

void CAAnimationBlock::end() {
  for (const auto& reference : std::exchange(layers_, {}))
    if (auto layer = reference.lock()) layer->endAnimationsOf(*this);
  running_ = 0;
  complete();
}

void CAAnimationBlock::complete() {
  // Let go of first: what it holds on to may hold this block.
  if (auto completion = std::exchange(completion_, nullptr)) completion();
}

void CAAnimationBlock::completeAtNextTurn() {
  RunLoop::main().schedule(RunLoop::main().now(), [self = shared_from_this()] { self->complete(); });
}
