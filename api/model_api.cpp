// Models through the public API: a file read into alignments, a profile,
// superelevation, cross sections or points, walked and evaluated.
#include <cstdlib>
#include <cstring>
#include <memory>

#include "alignment/geometry.h"
#include "api/context.h"
#include "frame/file_models.h"
#include "frame/geojson.h"
#include "frame/report_text.h"
#include "profile/profile_evaluation.h"

struct quelcnv_model {
    std::optional<quelcnv::FileModel> model;
    std::string problem, unit;
    std::vector<std::string> alignmentNames;
    // Names and codes in the caller's code page, as the accessors give them.
    std::vector<std::string> pointNames, pointCodes;
    std::vector<std::vector<std::string>> sectionCodes;
};

namespace quelcnv::api {

namespace {

LandXmlChoice choiceOf(const quelcnv_context& context, quelcnv_model_kind kind,
                       const char* choice) {
    LandXmlChoice chosen;
    if (choice == nullptr) return chosen;
    std::string name = nameFromCaller(context, choice);
    if (kind == QUELCNV_MODEL_PROFILE)
        chosen.profile = name;
    else if (kind == QUELCNV_MODEL_SECTIONS)
        chosen.surface = name;
    else
        chosen.alignment = name;
    return chosen;
}

std::optional<DataKind> kindAsked(quelcnv_model_kind kind) {
    switch (kind) {
        case QUELCNV_MODEL_ALIGNMENTS: return DataKind::alignment;
        case QUELCNV_MODEL_PROFILE: return DataKind::profile;
        case QUELCNV_MODEL_SUPERELEVATION: return DataKind::superelevation;
        case QUELCNV_MODEL_SECTIONS: return DataKind::crossSections;
        case QUELCNV_MODEL_POINTS: return DataKind::points;
        default: return std::nullopt;
    }
}

// The model's names and codes in the caller's code page.
void keepTexts(const quelcnv_context& context, quelcnv_model& made) {
    const FileModel& model = *made.model;
    for (const NamedAlignment& alignment : model.alignments)
        made.alignmentNames.push_back(fromCodePage(context, alignment.name));
    for (const NamedPoint& point : model.points) {
        made.pointNames.push_back(fromCodePage(context, point.name));
        made.pointCodes.push_back(fromCodePage(context, point.code));
    }
    for (const CrossSection& section : model.sections) {
        auto& codes = made.sectionCodes.emplace_back();
        for (const SectionPoint& point : section.points)
            codes.push_back(fromCodePage(context, point.code));
    }
    made.unit = fromUtf8(context, model.unit);
}

quelcnv_model* open(const quelcnv_context& context, const std::string& path,
                    quelcnv_model_kind kind, const char* choice) {
    auto made = std::make_unique<quelcnv_model>();
    std::vector<std::string> shown;  // the readers' messages, sent to the sink
    FileSummary summary = recogniseFile(path);
    ModelSource source;
    if (!summary.opened)
        source.problem = "no se puede leer el fichero de entrada: " + pathText(path);
    else
        source = openFileModel(path, summary, kindAsked(kind), choiceOf(context, kind, choice),
                               callSettings(context, shown).showMessage);
    if (source.model) {
        made->model = std::move(source.model);
        keepTexts(context, *made);
    } else {
        made->problem = fromUtf8(context, source.problem);
    }
    return made.release();
}

const FileModel* modelOf(const quelcnv_model* model, ModelKind kind) {
    if (model == nullptr || !model->model || model->model->kind != kind) return nullptr;
    return &*model->model;
}

const NamedAlignment* alignmentOf(const quelcnv_model* model, size_t index) {
    const FileModel* plan = modelOf(model, ModelKind::plan);
    return plan != nullptr && index < plan->alignments.size() ? &plan->alignments[index] : nullptr;
}

template <typename T>
void put(T* where, T value) {
    if (where != nullptr) *where = value;
}

}  // namespace

}  // namespace quelcnv::api

using namespace quelcnv;

extern "C" {

QUELCNV_PUBLIC quelcnv_model* quelcnv_model_open(quelcnv_context* context, const char* path,
                                                 quelcnv_model_kind kind, const char* choice) {
    try {
        if (context == nullptr || path == nullptr) return nullptr;
        return api::open(*context, api::pathFromCaller(*context, path), kind, choice);
    } catch (...) {
        return nullptr;
    }
}

QUELCNV_PUBLIC void quelcnv_model_free(quelcnv_model* model) { delete model; }

QUELCNV_PUBLIC quelcnv_model_kind quelcnv_model_kind_of(const quelcnv_model* model) {
    if (model == nullptr || !model->model) return QUELCNV_MODEL_NONE;
    switch (model->model->kind) {
        case ModelKind::plan: return QUELCNV_MODEL_ALIGNMENTS;
        case ModelKind::profile: return QUELCNV_MODEL_PROFILE;
        case ModelKind::superelevation: return QUELCNV_MODEL_SUPERELEVATION;
        case ModelKind::sections: return QUELCNV_MODEL_SECTIONS;
        case ModelKind::points: return QUELCNV_MODEL_POINTS;
    }
    return QUELCNV_MODEL_NONE;
}

QUELCNV_PUBLIC const char* quelcnv_model_problem(const quelcnv_model* model) {
    return model == nullptr ? "" : model->problem.c_str();
}

QUELCNV_PUBLIC const char* quelcnv_model_unit(const quelcnv_model* model) {
    return model == nullptr || !model->model ? "" : model->unit.c_str();
}

QUELCNV_PUBLIC size_t quelcnv_model_alignment_count(const quelcnv_model* model) {
    const FileModel* plan = api::modelOf(model, ModelKind::plan);
    return plan == nullptr ? 0 : plan->alignments.size();
}

QUELCNV_PUBLIC const char* quelcnv_model_alignment_name(const quelcnv_model* model,
                                                        size_t alignment) {
    if (api::alignmentOf(model, alignment) == nullptr) return nullptr;
    return model->alignmentNames[alignment].c_str();
}

QUELCNV_PUBLIC size_t quelcnv_model_element_count(const quelcnv_model* model, size_t alignment) {
    const NamedAlignment* found = api::alignmentOf(model, alignment);
    return found == nullptr ? 0 : found->elements.size();
}

QUELCNV_PUBLIC int quelcnv_model_element(const quelcnv_model* model, size_t alignment, size_t index,
                                         quelcnv_element* element) {
    const NamedAlignment* found = api::alignmentOf(model, alignment);
    if (found == nullptr || element == nullptr || index >= found->elements.size()) return 0;
    const PlanElement& e = found->elements[index];
    element->kind = static_cast<quelcnv_element_kind>(e.kind);
    element->station = e.station;
    element->length = e.length;
    element->x = e.start.x;
    element->y = e.start.y;
    element->azimuth = normalizeGrads(e.azimuth * radiansToGrads);
    element->start_curvature = e.k0;
    element->end_curvature = e.k1;
    return 1;
}

QUELCNV_PUBLIC int quelcnv_model_alignment_at(const quelcnv_model* model, size_t alignment,
                                              double station, double offset, double* x, double* y,
                                              double* azimuth, double* curvature) {
    try {
        const NamedAlignment* found = api::alignmentOf(model, alignment);
        if (found == nullptr) return 0;
        std::optional<PlanPose> pose = poseAtStation(found->elements, station, offset);
        if (!pose) return 0;
        api::put(x, pose->point.x);
        api::put(y, pose->point.y);
        api::put(azimuth, normalizeGrads(pose->azimuth * radiansToGrads));
        api::put(curvature, pose->curvature);
        return 1;
    } catch (...) {
        return 0;
    }
}

QUELCNV_PUBLIC size_t quelcnv_model_vertex_count(const quelcnv_model* model) {
    const FileModel* profile = api::modelOf(model, ModelKind::profile);
    return profile == nullptr ? 0 : profile->profile.size();
}

QUELCNV_PUBLIC int quelcnv_model_vertex(const quelcnv_model* model, size_t index, double* station,
                                        double* elevation, double* curve_length) {
    const FileModel* profile = api::modelOf(model, ModelKind::profile);
    if (profile == nullptr || index >= profile->profile.size()) return 0;
    const ProfileVertex& vertex = profile->profile[index];
    api::put(station, vertex.station);
    api::put(elevation, vertex.elevation);
    api::put(curve_length, 2.0 * vertex.tangent);
    return 1;
}

QUELCNV_PUBLIC int quelcnv_model_profile_at(const quelcnv_model* model, double station,
                                            double* elevation, double* grade) {
    try {
        const FileModel* profile = api::modelOf(model, ModelKind::profile);
        if (profile == nullptr) return 0;
        std::optional<ProfilePoint> point = profileAt(profile->profile, station);
        if (!point) return 0;
        api::put(elevation, point->elevation);
        api::put(grade, point->grade);
        return 1;
    } catch (...) {
        return 0;
    }
}

QUELCNV_PUBLIC size_t quelcnv_model_row_count(const quelcnv_model* model) {
    const FileModel* rows = api::modelOf(model, ModelKind::superelevation);
    return rows == nullptr ? 0 : rows->superelevation.size();
}

QUELCNV_PUBLIC int quelcnv_model_row(const quelcnv_model* model, size_t index, double* station,
                                     double* first_fall, double* second_fall) {
    const FileModel* rows = api::modelOf(model, ModelKind::superelevation);
    if (rows == nullptr || index >= rows->superelevation.size()) return 0;
    const SuperelevationRow& row = rows->superelevation[index];
    api::put(station, row.station);
    api::put(first_fall, row.firstFall);
    api::put(second_fall, row.secondFall);
    return 1;
}

QUELCNV_PUBLIC size_t quelcnv_model_section_count(const quelcnv_model* model) {
    const FileModel* sections = api::modelOf(model, ModelKind::sections);
    return sections == nullptr ? 0 : sections->sections.size();
}

QUELCNV_PUBLIC int quelcnv_model_section(const quelcnv_model* model, size_t index, double* station,
                                         size_t* point_count) {
    const FileModel* sections = api::modelOf(model, ModelKind::sections);
    if (sections == nullptr || index >= sections->sections.size()) return 0;
    api::put(station, sections->sections[index].station);
    api::put(point_count, sections->sections[index].points.size());
    return 1;
}

QUELCNV_PUBLIC int quelcnv_model_section_point(const quelcnv_model* model, size_t section,
                                               size_t index, double* offset, double* elevation,
                                               const char** code) {
    const FileModel* sections = api::modelOf(model, ModelKind::sections);
    if (sections == nullptr || section >= sections->sections.size() ||
        index >= sections->sections[section].points.size())
        return 0;
    const SectionPoint& point = sections->sections[section].points[index];
    api::put(offset, point.offset);
    api::put(elevation, point.elevation);
    api::put(code, model->sectionCodes[section][index].c_str());
    return 1;
}

QUELCNV_PUBLIC size_t quelcnv_model_point_count(const quelcnv_model* model) {
    const FileModel* points = api::modelOf(model, ModelKind::points);
    return points == nullptr ? 0 : points->points.size();
}

QUELCNV_PUBLIC int quelcnv_model_point(const quelcnv_model* model, size_t index, const char** name,
                                       double* x, double* y, double* z, const char** code) {
    const FileModel* points = api::modelOf(model, ModelKind::points);
    if (points == nullptr || index >= points->points.size()) return 0;
    const NamedPoint& point = points->points[index];
    api::put(name, model->pointNames[index].c_str());
    api::put(x, point.x);
    api::put(y, point.y);
    api::put(z, point.z);
    api::put(code, model->pointCodes[index].c_str());
    return 1;
}

QUELCNV_PUBLIC char* quelcnv_model_geojson(const quelcnv_model* model, double spacing) {
    try {
        if (model == nullptr || !model->model) return nullptr;
        std::optional<std::string> text = modelGeoJson(*model->model, spacing);
        if (!text) return nullptr;
        char* copy = static_cast<char*>(std::malloc(text->size() + 1));
        if (copy != nullptr) std::memcpy(copy, text->c_str(), text->size() + 1);
        return copy;
    } catch (...) {
        return nullptr;
    }
}

QUELCNV_PUBLIC void quelcnv_text_free(char* text) { std::free(text); }

}  // extern "C"
