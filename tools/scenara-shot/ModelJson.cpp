// SPDX-License-Identifier: MIT
#include "scenara-shot/ModelJson.h"

#include <concepts>
#include <string>
#include <string_view>
#include <type_traits>

#include <rapidjson/ostreamwrapper.h>
#include <rapidjson/prettywriter.h>

#include "base/NumberText.h"
#include "base/Text.h"
#include "stage/ModelFields.h"

namespace scenara {
namespace {

std::string_view Word(BlendKind kind) {
    switch (kind) {
        case BlendKind::None: return "none";
        case BlendKind::Add: return "add";
        case BlendKind::Add1: return "add1";
        case BlendKind::Sub: return "sub";
        case BlendKind::AddAlpha: return "addalpha";
    }
    return {};
}

std::string_view Word(ElementKind kind) {
    switch (kind) {
        case ElementKind::Still: return "still";
        case ElementKind::Parallax: return "parallax";
        case ElementKind::Animated: return "animated";
        case ElementKind::Dummy: return "dummy";
    }
    return {};
}

// Whatever is neither a number, a text, a word nor a list.
template <typename Value>
concept Record = std::is_class_v<Value> && !std::convertible_to<Value, std::string_view> &&
                 !requires(const Value& value) {
    value.begin();
};

// Writes values and "name": value pairs, numbers in the program's own form.
class JsonWriter {
public:
    explicit JsonWriter(std::ostream& out) : stream_(out) { writer_.SetIndent(' ', 2); }

    void Object(auto&& members) {
        writer_.StartObject();
        members();
        writer_.EndObject();
    }

    void Member(const char* name, const auto& value) {
        writer_.Key(name);
        Value(value);
    }

private:
    void Value(std::string_view text) {
        const std::string utf8 = ToUtf8(text);
        writer_.String(utf8.data(), static_cast<rapidjson::SizeType>(utf8.size()));
    }
    void Value(const std::string& text) { Value(std::string_view(text)); }
    void Value(float number) { Raw(NumberText(number)); }
    void Value(double number) { Raw(NumberText(number)); }
    template <typename Kind>
    requires std::is_enum_v<Kind>
    void Value(Kind kind) { Value(Word(kind)); }
    void Value(const Message& message) { Value(message.text); }
    template <std::integral Number>
    void Value(Number number) {
        Raw(NumberText(std::int64_t{number}));
    }
    template <Record Fields>
    void Value(const Fields& record) {
        Object([&] {
            ForEachField(record, [&](const char* name, const auto& value) { Member(name, value); });
        });
    }
    // Numbers stand on one line.
    template <typename List>
    requires requires(const List& list) { list.begin(); }
    void Value(const List& list) {
        constexpr bool kNumbers = std::is_arithmetic_v<typename List::value_type>;
        writer_.SetFormatOptions(kNumbers ? rapidjson::kFormatSingleLineArray
                                          : rapidjson::kFormatDefault);
        writer_.StartArray();
        for (const auto& value : list) {
            Value(value);
        }
        writer_.EndArray();
        writer_.SetFormatOptions(rapidjson::kFormatDefault);
    }

    void Raw(const std::string& number) {
        writer_.RawValue(number.data(), number.size(), rapidjson::kNumberType);
    }

    rapidjson::OStreamWrapper stream_;
    rapidjson::PrettyWriter<rapidjson::OStreamWrapper> writer_{stream_};
};

}  // namespace

void WriteModelJson(std::ostream& out, const StageModel& model,
                    const std::vector<Message>& messages) {
    JsonWriter json(out);
    const auto member = [&](const char* name, const auto& value) { json.Member(name, value); };
    json.Object([&] {
        member("settings", model);
        ForEachTable(model, member);
        member("messages", messages);
    });
    out << '\n';
}

}  // namespace scenara
