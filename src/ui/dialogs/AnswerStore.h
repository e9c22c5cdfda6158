#pragma once

#include <QString>

#include <optional>

namespace pellam {

/// Where answers that a person does not want to be asked for again are kept between runs.
class AnswerStore {
  public:
    virtual ~AnswerStore() = default;

    /// The answer kept under an id; nothing when there is none.
    virtual std::optional<int> load(const QString& id) = 0;
    virtual void store(const QString& id, int answer) = 0;
    /// Forgets every answer.
    virtual void clear() = 0;
};

} // namespace pellam
