#include "automation/Records.h"

#include "automation/AutomationError.h"
#include "automation/Coercion.h"
#include "automation/MemberNames.h"

#include <algorithm>
#include <cstddef>
#include <string>
#include <unordered_map>
#include <utility>
#include <vector>

namespace orv::automation {

namespace {

/// The names that the default members carry in a type library.
constexpr std::u16string_view dictionaryDefaultName = u"Value";
constexpr std::u16string_view collectionDefaultName = u"Item";

/// Nested records deeper than this are a loop: the copy would never end.
constexpr int deepestNesting = 200;

bool isRead(InvokeKind kind) noexcept {
    return kind == InvokeKind::get || kind == InvokeKind::method;
}

bool isDefault(std::u16string_view member, std::u16string_view name) noexcept {
    return member.empty() || sameMember(member, name);
}

void expectCount(Arguments arguments, std::size_t least, std::size_t most) {
    if (arguments.size() < least || arguments.size() > most)
        throw AutomationError::runtime(errorNumber::wrongArgumentCount);
}

class CollectionObject final : public Object {
  public:
    Value invoke(std::u16string_view member, InvokeKind kind, Arguments arguments) override {
        if (isRead(kind)) {
            if (isDefault(member, collectionDefaultName))
                return item(arguments);
            if (sameMember(member, member::collection::count)) {
                expectCount(arguments, 0, 0);
                return Value(static_cast<std::int32_t>(items_.size()));
            }
            if (kind == InvokeKind::method && sameMember(member, member::collection::add)) {
                expectCount(arguments, 1, 1);
                add(arguments[0].value());
                return Value();
            }
        }
        throw AutomationError::runtime(errorNumber::memberNotFound);
    }

    std::u16string_view typeName() const override { return u"Collection"; }

    void add(Value value) { items_.push_back(std::move(value)); }

  private:
    const Value& item(Arguments arguments) const {
        expectCount(arguments, 1, 1);
        const std::int32_t index = toInt32(arguments[0].value());
        if (index < 1 || static_cast<std::size_t>(index) > items_.size())
            throw AutomationError::runtime(errorNumber::subscriptOutOfRange);
        return items_[static_cast<std::size_t>(index) - 1];
    }

    std::vector<Value> items_;
};

class DictionaryObject final : public Object {
  public:
    Value invoke(std::u16string_view member, InvokeKind kind, Arguments arguments) override {
        if (isDefault(member, dictionaryDefaultName)) {
            if (isRead(kind)) {
                expectCount(arguments, 1, 1);
                return read(arguments[0].value());
            }
            expectCount(arguments, 2, 2);
            write(toText(arguments[0].value()), arguments[1].value());
            return Value();
        }
        if (!isRead(kind))
            throw AutomationError::runtime(errorNumber::memberNotFound);
        if (sameMember(member, member::dictionary::getValue)) {
            expectCount(arguments, 1, 2);
            const Value* found = find(arguments[0].value());
            return found != nullptr ? *found : arguments.size() == 2 ? arguments[1].value() : Value();
        }
        if (sameMember(member, member::dictionary::exists)) {
            expectCount(arguments, 1, 1);
            return Value(find(arguments[0].value()) != nullptr);
        }
        if (sameMember(member, member::dictionary::count)) {
            expectCount(arguments, 0, 0);
            return Value(static_cast<std::int32_t>(entries_.size()));
        }
        if (sameMember(member, member::dictionary::keys)) {
            expectCount(arguments, 0, 0);
            return keys();
        }
        if (sameMember(member, member::dictionary::cloneAll)) {
            expectCount(arguments, 0, 0);
            return Value(ObjectRef(clone(0)));
        }
        throw AutomationError::runtime(errorNumber::memberNotFound);
    }

    std::u16string_view typeName() const override { return u"Dictionary"; }

  private:
    using Entry = std::pair<std::u16string, Value>;

    const Value* find(const Value& key) const {
        // Most keys come as texts already: those are looked up without a copy.
        const auto* text = key.getIf<std::u16string>();
        const std::size_t position = text != nullptr ? positionOf(*text) : positionOf(toText(key));
        return position == entries_.size() ? nullptr : &entries_[position].second;
    }

    /// The position of a key's entry; the number of entries without one.
    std::size_t positionOf(const std::u16string& key) const {
        if (entries_.size() > mostUnindexed) {
            const auto found = positions_.find(key);
            return found == positions_.end() ? entries_.size() : found->second;
        }
        std::size_t position = 0;
        while (position < entries_.size() && entries_[position].first != key)
            ++position;
        return position;
    }

    void append(std::u16string key, Value value) {
        // Most records have some sixteen entries: room for four, then for all of them.
        if (entries_.size() == entries_.capacity())
            entries_.reserve(std::max<std::size_t>(4, 4 * entries_.capacity()));
        entries_.emplace_back(std::move(key), std::move(value));
        if (entries_.size() <= mostUnindexed)
            return;
        // Both hold the key, or neither: memory may run out here.
        try {
            for (std::size_t position = positions_.size(); position < entries_.size(); ++position)
                positions_.emplace(entries_[position].first, position);
        } catch (...) {
            entries_.pop_back();
            throw;
        }
    }

    const Value& read(const Value& key) const {
        const Value* found = find(key);
        if (found == nullptr)
            throw AutomationError::runtime(errorNumber::invalidCall);
        return *found;
    }

    void write(std::u16string key, Value value) {
        const std::size_t position = positionOf(key);
        if (position == entries_.size())
            append(std::move(key), std::move(value));
        else
            // The old content may run its own clean-up when it goes: the entry holds the new one by then.
            std::swap(entries_[position].second, value);
    }

    Value keys() const {
        const auto list = std::make_shared<CollectionObject>();
        for (const Entry& entry : entries_)
            list->add(Value(entry.first));
        return Value(ObjectRef(list));
    }

    std::shared_ptr<DictionaryObject> clone(int nesting) const {
        if (nesting > deepestNesting)
            throw AutomationError::runtime(errorNumber::outOfStackSpace);
        auto copy = std::make_shared<DictionaryObject>();
        for (const auto& [key, value] : entries_)
            copy->write(key, cloneValue(value, nesting));
        return copy;
    }

    static Value cloneValue(const Value& value, int nesting) {
        const auto* object = value.getIf<ObjectRef>();
        if (object == nullptr || *object == nullptr)
            return value;
        if (const auto* own = dynamic_cast<const DictionaryObject*>(object->get()))
            return Value(ObjectRef(own->clone(nesting + 1)));
        // A dictionary of the host's own library copies itself.
        if ((*object)->typeName() == progId::dictionary)
            return call(*object, member::dictionary::cloneAll);
        return value;
    }

    /// A record's few keys are found sooner one after another than through a table, and take less room.
    static constexpr std::size_t mostUnindexed = 24;

    std::vector<Entry> entries_;
    std::unordered_map<std::u16string, std::size_t> positions_; ///< empty up to so many entries
};

} // namespace

Dictionary makeDictionary() {
    return Dictionary(std::make_shared<DictionaryObject>());
}

Collection makeCollection() {
    return Collection(std::make_shared<CollectionObject>());
}

} // namespace orv::automation
