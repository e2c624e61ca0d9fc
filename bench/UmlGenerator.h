#pragma once

#include <string>

namespace bench {

/// A UML model as Eclipse's tools save it, in packages of 100 classes. Each class has a comment, eight
/// attributes, two operations with parameters, a generalization and an association to another class. Equal
/// numbers give equal models.
std::string generateUmlModel(int classes);

}  // namespace bench
