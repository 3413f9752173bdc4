#include "inp_RebarFixupVisitor.h"

inp_RebarFixupVisitor::inp_RebarFixupVisitor() = default;

inp_RebarFixupVisitor::~inp_RebarFixupVisitor() = default;

void inp_RebarFixupVisitor::DefaultAction(inp_Keyword&) {}
