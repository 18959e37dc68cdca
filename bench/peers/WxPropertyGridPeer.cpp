// The workloads on a wxPropertyGrid (GTK, under a virtual X server), built as its users build a
// property list: categories, and typed properties with their bounds and choices.

#include <wx/wx.h>
#include <wx/propgrid/propgrid.h>

#include <vector>

#include "PeerWorkload.hpp"

namespace {

using namespace Peers;

constexpr int WindowWidth = 600;
constexpr int WindowHeight = 800;

int Run (int rows)
{
    auto* frame = new wxFrame (nullptr, wxID_ANY, "peer", wxDefaultPosition, wxSize (WindowWidth, WindowHeight));
    auto* grid = new wxPropertyGrid (frame, wxID_ANY, wxDefaultPosition, wxSize (WindowWidth, WindowHeight), wxPG_DEFAULT_STYLE);
    int paints = 0;
    grid->Bind (wxEVT_PAINT, [&] (wxPaintEvent& event) {
        ++paints;
        event.Skip ();
    });
    frame->Show ();
    wxYield ();

    wxPGChoices choices;
    for (int i = 0; i < ChoiceCount; ++i) choices.Add (ChoiceName (i), i);
    const int realTarget = MiddleProperty (rows, Kind::Real);
    const int textTarget = MiddleProperty (rows, Kind::Text);
    wxPGProperty* real = nullptr;
    wxPGProperty* text = nullptr;
    // Drawn now: wxWindow::Update paints what is invalid before it returns.
    auto show = [&] { grid->Update (); };

    // --- Populate, and the heap it holds ---
    const std::size_t heapBefore = HeapInUse ();
    const long faultsBefore = MinorFaults ();
    auto populate = [&] {
        grid->Freeze ();
        for (int property = 0; property < rows; ++property) {
            if (property % PropertiesPerGroup == 0) grid->Append (new wxPropertyCategory (GroupName (property / PropertiesPerGroup)));
            const wxString name = PropertyName (property);
            wxPGProperty* made = nullptr;
            switch (KindOf (property)) {
                case Kind::Text: made = grid->Append (new wxStringProperty (name, wxPG_LABEL, "Exterior wall")); break;
                case Kind::Int:
                    made = grid->Append (new wxIntProperty (name, wxPG_LABEL, property % IntMax));
                    made->SetAttribute (wxPG_ATTR_MIN, IntMin);
                    made->SetAttribute (wxPG_ATTR_MAX, IntMax);
                    break;
                case Kind::Real:
                    made = grid->Append (new wxFloatProperty (name, wxPG_LABEL, 0.5));
                    made->SetAttribute (wxPG_ATTR_MIN, RealMin);
                    made->SetAttribute (wxPG_ATTR_MAX, RealMax);
                    break;
                case Kind::Check:
                    made = grid->Append (new wxBoolProperty (name, wxPG_LABEL, property % 2 == 0));
                    made->SetAttribute (wxPG_BOOL_USE_CHECKBOX, true);
                    break;
                case Kind::Choice: made = grid->Append (new wxEnumProperty (name, wxPG_LABEL, choices, property % ChoiceCount)); break;
            }
            if (property == realTarget) real = made;
            if (property == textTarget) text = made;
        }
        grid->Thaw ();
        show ();
    };
    const double populateUs = CpuMicroseconds (populate);
    const std::size_t heapAfter = HeapInUse ();
    const long faults = MinorFaults () - faultsBefore;
    Check (real != nullptr && text != nullptr && grid->GetPropertyByName (PropertyName (rows - 1)) != nullptr, "populate made the wrong grid");
    Print ("populate", populateUs * 1000.0 / rows);
    Print ("memory", static_cast<double> (heapAfter - heapBefore) / rows);
    Print ("faults", static_cast<double> (faults) / rows);

    // --- One value set by the program in the middle of the list, and shown ---
    grid->EnsureVisible (real);
    show ();
    int step = 0;
    const int paintsBefore = paints;
    Print ("change", MedianMicroseconds (SmallRepeats, [&] {
        grid->SetPropertyValue (real, 1.0 + (++step % 2));
        show ();
    }));
    Check (grid->GetPropertyValue (real).GetDouble () == 1.0 + (step % 2), "the value does not read back");
    Check (paints >= paintsBefore + SmallRepeats, "a change was not painted (" + std::to_string (paints - paintsBefore) + " paints)");

    // --- The user types one character into a text value and confirms; the program hears it ---
    // The grid tells the program of an edit only when it is committed, so each timing is a
    // keystroke into the editor and its commit.
    int changes = 0;
    grid->Bind (wxEVT_PG_CHANGED, [&] (wxPropertyGridEvent& event) {
        if (event.GetProperty () == text) ++changes;
    });
    grid->EnsureVisible (text);
    grid->SelectProperty (text, true);
    show ();
    auto* editor = wxDynamicCast (grid->GetEditorControl (), wxTextCtrl);
    Check (editor != nullptr, "no text editor opened");
    std::vector<double> times;
    for (int i = 0; i < SmallRepeats; ++i) {
        // A text other than the last one committed, so that every commit is a change.
        editor->ChangeValue (i % 2 == 0 ? "Wall" : "Door");
        editor->SetInsertionPointEnd ();
        times.push_back (Microseconds ([&] {
            editor->WriteText ("a");
            grid->CommitChangesFromEditor ();
            show ();
        }));
    }
    std::nth_element (times.begin (), times.begin () + SmallRepeats / 2, times.end ());
    Print ("edit", times[SmallRepeats / 2]);
    Check (changes == SmallRepeats && grid->GetPropertyValueAsString (text) == "Walla",
           "the edits did not reach the program (" + std::to_string (changes) + ")");
    grid->ClearSelection ();

    // --- Every row laid out and drawn again from the properties ---
    Print ("refresh", MedianCpuMicroseconds (LargeRepeats, [&] {
              grid->RefreshGrid ();
              show ();
          }) / 1000.0);

    // --- One screen painted ---
    const int paintsBeforeFrame = paints;
    Print ("paint", MedianCpuMicroseconds (LargeRepeats, [&] {
              grid->Refresh ();
              show ();
          }) / 1000.0);
    Check (paints >= paintsBeforeFrame + LargeRepeats, "the screen was not painted");

    // --- All groups collapsed, then expanded ---
    Print ("collapse", MedianCpuMicroseconds (LargeRepeats, [&] {
              grid->CollapseAll ();
              grid->ExpandAll ();
              show ();
          }) / 1000.0);
    Check (grid->IsPropertyExpanded (grid->GetFirstChild (grid->GetRoot ())), "expanding left a group collapsed");

    // --- Populated again after clearing, as a palette is for every new selection ---
    grid->Clear ();
    show ();
    Print ("repopulate", CpuMicroseconds (populate) * 1000.0 / rows);
    Check (grid->GetPropertyByName (PropertyName (rows - 1)) != nullptr, "repopulate made the wrong grid");

    frame->Destroy ();
    wxYield ();
    return 0;
}

}   // namespace

int main (int argc, char** argv)
{
    wxApp::SetInstance (new wxApp ());
    // Our own --rows is no wx option: wx sees the program name only.
    int wxArgc = 1;
    if (!wxEntryStart (wxArgc, argv)) {
        std::printf ("error\tno display for the wx window\n");
        return FailureExitCode;
    }
    const int result = Run (ParseRows (argc, argv));
    wxEntryCleanup ();
    return result;
}
