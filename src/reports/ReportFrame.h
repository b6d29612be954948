#pragma once
// The report frame: a report kind is a fill function plus a layout description.
