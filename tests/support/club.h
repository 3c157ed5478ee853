// A small club as people have it: an edge list, a nodes file and a model of its density.
#pragma once

#include "support/tool_runner.h"

class ClubTest : public ToolTest {
  protected:
    ClubTest() {
        scratch.write("club.csv",
                      "from,to\nAnn,Ben\nBen,Cid\nCid,Dot\nDot,Eve\nEve,Fay\nFay,Ann\nAnn,Dot\nGil,"
                      "Ann\n");
        scratch.write("nodes.csv",
                      "name,sex,age\nAnn,f,30\nBen,m,41\nCid,m,25\nDot,f,33\nEve,f,60\nFay,f,28\n"
                      "Gil,m,52\n");
        scratch.write("club.toml",
                      "[network]\nfile = \"club.csv\"\ndirected = false\nnodes = \"nodes.csv\"\n"
                      "[model]\neffects = [\"edge\"]\n[estimation]\nmethod = "
                      "\"stochastic-approximation\"\n[gof]\nsamples = 40\n[run]\nseed = 2\n");
    }
    const ToolResult& ovri(const std::vector<std::string>& words) {
        result = run_tool(words, scratch.path().string());
        return result;
    }
};
