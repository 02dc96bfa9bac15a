#include "tests/support/tree_model.h"

#include <deque>

namespace zel::test {

long TreeModel::NewNode(Node node) {
  long const address = free_.Take(2, 1);
  nodes_[address] = std::move(node);
  return address;
}

void TreeModel::FreeNode(long address) {
  nodes_.erase(address);
  free_.GiveBack(address, 1, 2);
}

// The path to the key, or to where it belongs.
bool TreeModel::Descend(Words const& key, std::vector<Step>& path) const {
  path.clear();
  long address = root_;
  while (address != kNull) {
    Node const& node = nodes_.at(address);
    std::size_t i = 0;
    while (i < node.entries.size() && KeyOf(node.entries[i]) < key) ++i;
    bool const found = i < node.entries.size() && KeyOf(node.entries[i]) == key;
    path.push_back({address, i});
    if (found) return true;
    address = node.links[i];
  }
  return false;
}

bool TreeModel::Insert(Words const& entry) {
  std::vector<Step> path;
  if (Descend(KeyOf(entry), path)) return false;
  InsertAt(path, entry, kNull, kNull);
  return true;
}

void TreeModel::InsertAt(std::vector<Step> path, Words const& entry, long left, long right) {
  if (path.empty()) {
    Node root;
    root.entries = {entry};
    root.links = {left, right};
    root_ = NewNode(root);
    return;
  }
  Step const step = path.back();
  path.pop_back();
  long const i = static_cast<long>(step.index);
  Node full = nodes_.at(step.address);
  full.links[step.index] = left;
  full.entries.insert(full.entries.begin() + i, entry);
  full.links.insert(full.links.begin() + i + 1, right);
  std::size_t const c = full.entries.size();
  if (c <= capacity_) {
    nodes_[step.address] = full;
    return;
  }
  std::size_t const q = c / 4;
  std::size_t const t = c - q == step.index + 1 ? 1 : 0;
  std::size_t const b = c - q - 1 - t;
  Node leftPart = full;
  Node rightPart = full;
  leftPart.entries.resize(b);
  leftPart.links.resize(b + 1);
  rightPart.entries.erase(rightPart.entries.begin(),
                          rightPart.entries.begin() + static_cast<long>(b) + 1);
  rightPart.links.erase(rightPart.links.begin(),
                        rightPart.links.begin() + static_cast<long>(b) + 1);
  Words const middle = full.entries[b];
  if (step.index + 1 > b) {
    leftPart.next = step.address;
    long const added = NewNode(leftPart);
    rightPart.previous = added;
    nodes_[step.address] = rightPart;
    InsertAt(path, middle, added, step.address);
  } else {
    rightPart.previous = step.address;
    long const added = NewNode(rightPart);
    leftPart.next = added;
    nodes_[step.address] = leftPart;
    InsertAt(path, middle, step.address, added);
  }
}

void TreeModel::Delete(Words const& key) {
  if (!QuickDelete(key)) Rebuild(key);
}

bool TreeModel::QuickDelete(Words const& key) {
  std::vector<Step> path;
  if (!Descend(key, path)) return false;
  Node& node = nodes_.at(path.back().address);
  std::size_t const p = path.back().index;  // counted from 0 here
  auto const at = static_cast<long>(p);
  if (node.links[0] == kNull) {
    node.entries.erase(node.entries.begin() + at);
    node.links.erase(node.links.begin() + at + 1);
    return true;
  }
  long const leftAddress = node.links[p];
  long const rightAddress = node.links[p + 1];
  Node& left = nodes_.at(leftAddress);
  Node& right = nodes_.at(rightAddress);
  if (right.links[0] != kNull) return false;
  std::size_t const c = node.entries.size();
  std::size_t const nL = left.entries.size();
  std::size_t const nR = right.entries.size();
  if (c >= 2 && nR == 0) {
    node.entries.erase(node.entries.begin() + at);
    node.links.erase(node.links.begin() + at + 1);
    FreeNode(rightAddress);
  } else if (c >= 2 && nL == 0) {
    node.links.erase(node.links.begin() + at);
    node.entries.erase(node.entries.begin() + at);
    FreeNode(leftAddress);
  } else if (c >= 2 && nL + nR <= capacity_) {
    left.entries.insert(left.entries.end(), right.entries.begin(), right.entries.end());
    left.links.assign(left.entries.size() + 1, kNull);
    node.entries.erase(node.entries.begin() + at);
    node.links.erase(node.links.begin() + at + 1);
    FreeNode(rightAddress);
  } else if (nL < 2 && (nR <= nL || nR < 2)) {
    return false;
  } else if (nR <= nL || nR < 2) {
    node.entries[p] = left.entries.back();
    left.entries.pop_back();
    left.links.pop_back();
  } else {
    node.entries[p] = right.entries.front();
    right.entries.erase(right.entries.begin());
    right.links.erase(right.links.begin());
  }
  return true;
}

void TreeModel::Rebuild(Words const& key) {
  std::deque<long> queue{root_};
  root_ = kNull;
  while (!queue.empty()) {
    long const address = queue.front();
    queue.pop_front();
    Node const node = nodes_.at(address);
    if (node.links[0] != kNull) queue.push_back(node.links[0]);
    for (std::size_t i = 0; i < node.entries.size(); ++i) {
      if (KeyOf(node.entries[i]) != key) Insert(node.entries[i]);
      if (node.links[i + 1] != kNull) queue.push_back(node.links[i + 1]);
    }
    FreeNode(address);
  }
}

std::vector<TreeModel::Words> TreeModel::Walk() const {
  std::vector<Words> out;
  WalkFrom(root_, out);
  return out;
}

void TreeModel::WalkFrom(long address, std::vector<Words>& out) const {
  if (address == kNull) return;
  Node const& node = nodes_.at(address);
  WalkFrom(node.links[0], out);
  for (std::size_t i = 0; i < node.entries.size(); ++i) {
    out.push_back(node.entries[i]);
    WalkFrom(node.links[i + 1], out);
  }
}

}  // namespace zel::test
